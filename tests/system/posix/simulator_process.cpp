#include "system/simulator_process.h"

#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>

#include <filesystem>

#include "koraxdr.h"

extern char** environ;

namespace system_tests {

const std::string& ScratchFolder() {
    static const struct Folder {
        std::string path = (std::filesystem::temp_directory_path() / "koraxdr-XXXXXX").string();
        Folder() { EXPECT_NE(nullptr, mkdtemp(path.data())); }
        ~Folder() { std::filesystem::remove_all(path); }
    } folder;
    return folder.path;
}

Process::Process(const Arguments& arguments, const std::string& output) {
    std::vector<char*> argv;
    for (const std::string& argument : arguments) {
        argv.push_back(const_cast<char*>(argument.c_str()));
    }
    argv.push_back(nullptr);
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_addopen(&actions, 0, "/dev/null", O_RDONLY, 0);
    posix_spawn_file_actions_addopen(&actions, 1, output.c_str(), O_WRONLY | O_CREAT | O_TRUNC,
                                     0600);
    pid_t pid = 0;
    EXPECT_EQ(0, posix_spawn(&pid, argv[0], &actions, nullptr, argv.data(), environ));
    posix_spawn_file_actions_destroy(&actions);
    id_ = pid;
}

Process::~Process() {
    Stop(SIGKILL);
}

int Process::Wait() {
    int status = -1;
    if (id_ == 0 || waitpid(static_cast<pid_t>(id_), &status, 0) < 0) return -1;
    id_ = 0;
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

int Process::Stop(int signal) {
    if (id_ != 0) kill(static_cast<pid_t>(id_), signal);
    return Wait();
}

std::string DeviceOf(int32_t port) {
    return ScratchFolder() + "/com" + std::to_string(port);
}

void NamePort(int32_t port) {
    ASSERT_EQ(0, SetPortDevice(port, DeviceOf(port).c_str()));
}

int RunExample(const std::string& name, int32_t port, const std::string& output) {
    return Process({EXAMPLES_DIR "/" + name, DeviceOf(port)}, output).Wait();
}

}  // namespace system_tests
