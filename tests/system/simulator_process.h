// A running koraxsim, with a stable link to its pseudo-terminal and its paper.
#pragma once

#include <fcntl.h>
#include <signal.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <thread>
#include <vector>

#include "gtest/gtest.h"

extern char** environ;

namespace system_tests {

// A folder of this run alone, gone when it ends.
inline const std::filesystem::path& ScratchFolder() {
    static const struct Folder {
        std::filesystem::path path;
        Folder() {
            std::string name = (std::filesystem::temp_directory_path() / "koraxdr-XXXXXX").string();
            path = mkdtemp(name.data());
        }
        ~Folder() { std::filesystem::remove_all(path); }
    } folder;
    return folder.path;
}

// Runs a program with its output in a file; waits for it unless told otherwise.
class Process {
  public:
    Process(const std::vector<std::string>& arguments, const std::filesystem::path& output) {
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
        if (posix_spawn(&pid_, argv[0], &actions, nullptr, argv.data(), environ) != 0) pid_ = -1;
        posix_spawn_file_actions_destroy(&actions);
        EXPECT_GT(pid_, 0) << arguments[0];
    }
    ~Process() {
        if (pid_ > 0) Stop(SIGKILL);
    }
    Process(const Process&) = delete;
    Process& operator=(const Process&) = delete;

    int Wait() {
        int status = -1;
        if (pid_ > 0) waitpid(pid_, &status, 0);
        pid_ = -1;
        return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    }
    int Stop(int signal) {
        kill(pid_, signal);
        return Wait();
    }

  private:
    pid_t pid_ = -1;
};

inline std::string Contents(const std::filesystem::path& file) {
    std::ostringstream text;
    text << std::ifstream(file).rdbuf();
    return text.str();
}

class Simulator {
  public:
    explicit Simulator(int type, const std::string& name = "korax")
        : link_(ScratchFolder() / name),
          paper_(ScratchFolder() / (name + ".paper")),
          process_({KORAXSIM_PROGRAM, "--type", std::to_string(type), "--link", link_.string()},
                   paper_) {
        for (int tries = 0; tries < 3000 && Paper().find('\n') == std::string::npos; ++tries) {
            std::this_thread::sleep_for(std::chrono::milliseconds(10));
        }
        EXPECT_TRUE(std::filesystem::exists(link_));
    }

    const std::filesystem::path& link() const { return link_; }
    std::string Paper() const { return Contents(paper_); }
    int Stop(int signal = SIGTERM) { return process_.Stop(signal); }

  private:
    std::filesystem::path link_;
    std::filesystem::path paper_;
    Process process_;
};

}  // namespace system_tests
