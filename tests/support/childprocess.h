// Work in a process of its own, which may be killed in the midst of it.
#pragma once

#include <sys/wait.h>
#include <unistd.h>

#include <csignal>

namespace support {

// The exit code that `work` gives; the negative number of the signal that killed it instead.
template <typename Work>
int runInChild(Work work) {
    const pid_t child = fork();
    if (child == 0) _exit(work());
    int status = 0;
    if (child < 0 || waitpid(child, &status, 0) != child) return -1000;
    return WIFEXITED(status) ? WEXITSTATUS(status) : -WTERMSIG(status);
}

}  // namespace support
