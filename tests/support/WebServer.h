// Servers on this machine, for as long as the object lives: one that behaves and one that does not.
#pragma once

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <spawn.h>
#include <string>
#include <sys/wait.h>
#include <unistd.h>

#include <gtest/gtest.h>

#include "places/Places.h"

namespace desk {

class WebServer {
  public:
    WebServer() {
        int in[2] = {}, out[2] = {};
        if (pipe(in) != 0 || pipe(out) != 0) return;
        posix_spawn_file_actions_t actions;
        posix_spawn_file_actions_init(&actions);
        posix_spawn_file_actions_adddup2(&actions, in[0], 0);
        posix_spawn_file_actions_adddup2(&actions, out[1], 1);
        for (const int end : {in[0], in[1], out[0], out[1]}) posix_spawn_file_actions_addclose(&actions, end);
        std::string python = "/usr/bin/python3", script = PROJECT_DIR "/tests/programs/web_server.py";
        char* arguments[] = {python.data(), script.data(), newest_.data(), nullptr};
        posix_spawn(&process_, python.c_str(), &actions, nullptr, arguments, environ);
        posix_spawn_file_actions_destroy(&actions);
        close(in[0]);
        close(out[1]);
        life_ = in[1]; // when this end closes, also because the test has died, the server goes
        std::FILE* const said = fdopen(out[0], "r");
        if (!said || std::fscanf(said, "%d %d", &proper_, &rude_) != 2) proper_ = rude_ = 0;
        if (said) std::fclose(said);
    }
    ~WebServer() {
        close(life_);
        waitpid(process_, nullptr, 0);
        std::filesystem::remove(newest_);
    }
    WebServer(const WebServer&) = delete;
    WebServer& operator=(const WebServer&) = delete;

    [[nodiscard]] bool running() const { return proper_ > 0; }
    [[nodiscard]] std::string url(const std::string& path) const { return address(proper_) + path; }
    /// What a query for the newest version of the product is replied from now on.
    void setNewest(const std::string& reply) const { std::ofstream(newest_, std::ios::binary) << reply; }
    [[nodiscard]] std::string rudeUrl(const std::string& path) const { return address(rude_) + path; }

  private:
    static std::string address(int port) { return "http://127.0.0.1:" + std::to_string(port); }

    std::string newest_ = testing::TempDir() + "newest-" + std::to_string(getpid());
    pid_t process_ = 0;
    int life_ = -1;
    int proper_ = 0;
    int rude_ = 0;
};

} // namespace desk
