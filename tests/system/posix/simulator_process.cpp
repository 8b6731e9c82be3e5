#include "system/simulator_process.h"

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <filesystem>

#include "koraxdr.h"

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
    for (const std::string& argument : arguments)
        argv.push_back(const_cast<char*>(argument.c_str()));
    argv.push_back(nullptr);
    std::filesystem::remove(output);  // what an earlier process left is not this one's
    id_ = fork();
    EXPECT_NE(-1, id_);
    if (id_ != 0) return;
    dup2(open("/dev/null", O_RDONLY), STDIN_FILENO);
    dup2(open(output.c_str(), O_WRONLY | O_CREAT, 0600), STDOUT_FILENO);
    execv(argv[0], argv.data());
    _exit(127);
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
