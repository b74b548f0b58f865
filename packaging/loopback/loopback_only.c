// Preloaded by ./run on a machine without a display: the toolkit's VNC server listens on every interface
// and asks for no password, so every listening address is turned into the loopback one.
#define _GNU_SOURCE
#include <arpa/inet.h>
#include <dlfcn.h>
#include <netinet/in.h>
#include <string.h>
#include <sys/socket.h>

typedef int (*bind_function)(int, const struct sockaddr*, socklen_t);

int bind(int fd, const struct sockaddr* address, socklen_t size) {
    bind_function real = (bind_function)dlsym(RTLD_NEXT, "bind");
    if (address->sa_family == AF_INET && size >= sizeof(struct sockaddr_in)) {
        struct sockaddr_in local = *(const struct sockaddr_in*)address;
        local.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
        return real(fd, (const struct sockaddr*)&local, sizeof local);
    }
    if (address->sa_family == AF_INET6 && size >= sizeof(struct sockaddr_in6)) {
        struct sockaddr_in6 local = *(const struct sockaddr_in6*)address;
        // The mapped form, so that a dual-stack socket answers at 127.0.0.1.
        inet_pton(AF_INET6, "::ffff:127.0.0.1", &local.sin6_addr);
        return real(fd, (const struct sockaddr*)&local, sizeof local);
    }
    return real(fd, address, size);
}
