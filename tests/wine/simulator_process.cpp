#include "system/simulator_process.h"

#include <windows.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>

// Wine starts a program of the development system when it is asked to, but gives no handle to it:
// the shell writes its number and its exit status to files. Nobody is left running for good when
// this process is stopped from outside.
namespace system_tests {
namespace {

constexpr char kLongestRun[] = "600";

void Shell(const std::string& script) {
    std::string line = "/bin/sh -c \"" + script + "\"";
    STARTUPINFOA startup{};
    startup.cb = sizeof startup;
    PROCESS_INFORMATION process{};
    EXPECT_TRUE(CreateProcessA("/bin/sh", line.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr,
                               &startup, &process))
        << line;
}

std::string FileOf(int64_t id, const char* what) {
    return ScratchFolder() + "/process" + std::to_string(id) + what;
}

// The line that the shell writes to a file, when it has.
std::string AwaitLine(const std::string& file) {
    for (int tries = 0; tries < 6000; ++tries, Sleep(10)) {
        const std::string line = Contents(file);
        if (line.ends_with('\n')) return line.substr(0, line.size() - 1);
    }
    ADD_FAILURE() << file << " does not come";
    return "";
}

}  // namespace

const std::string& ScratchFolder() {
    static const struct Folder {
        std::string path = "/tmp/koraxdr-wine-" + std::to_string(GetCurrentProcessId()) + "-" +
                           std::to_string(GetTickCount64());
        Folder() { EXPECT_TRUE(std::filesystem::create_directory(path)); }
        ~Folder() { std::filesystem::remove_all(path); }
    } folder;
    return folder.path;
}

Process::Process(const Arguments& arguments, const std::string& output) {
    static int64_t started = 0;
    id_ = ++started;
    std::remove(output.c_str());  // the shell is not that quick
    std::string command = std::string("timeout ") + kLongestRun;
    for (const std::string& argument : arguments) command += " '" + argument + "'";
    Shell(command + " </dev/null >'" + output + "' & echo $! >" + FileOf(id_, ".pid") +
          "; wait $!; echo $? >" + FileOf(id_, ".status"));
}

Process::~Process() {
    Stop(9);  // SIGKILL there
}

int Process::Wait() {
    if (id_ == 0) return -1;
    const int status = std::atoi(AwaitLine(FileOf(id_, ".status")).c_str());
    id_ = 0;
    return status;
}

int Process::Stop(int signal) {
    const std::string pid = id_ != 0 ? AwaitLine(FileOf(id_, ".pid")) : "";
    if (!pid.empty()) Shell("kill -" + std::to_string(signal) + " " + pid);
    return Wait();
}

// Wine's COM ports are links in the folder of its configuration.
std::string DeviceOf(int32_t port) {
    return std::string(std::getenv("WINEPREFIX")) + "/dosdevices/com" + std::to_string(port);
}

void NamePort(int32_t) {}

int RunExample(const std::string& name, int32_t port, const std::string& output) {
    return std::system((name + ".exe " + std::to_string(port) + " >\"" + output + '"').c_str());
}

}  // namespace system_tests
