// Loaded with LD_PRELOAD, it makes the file system one that will not rename: every rename fails
// with the error named in VARNOK_REFUSE_RENAME ("EXDEV", "EPERM" or "ENOSPC"). With
// VARNOK_REFUSE_NEW_FILES set, making a file that must not exist yet fails with EPERM too.
#include <dlfcn.h>
#include <fcntl.h>

#include <cerrno>
#include <cstdarg>
#include <cstdlib>
#include <cstring>

extern "C" int rename(const char*, const char*) {
    const char* name = std::getenv("VARNOK_REFUSE_RENAME");
    errno = !name || std::strcmp(name, "EPERM") == 0 ? EPERM
            : std::strcmp(name, "ENOSPC") == 0       ? ENOSPC
                                                     : EXDEV;
    return -1;
}

extern "C" int open(const char* path, int flags, ...) {
    va_list rest;
    va_start(rest, flags);
    const mode_t mode = (flags & O_CREAT) ? static_cast<mode_t>(va_arg(rest, int)) : 0;
    va_end(rest);
    if ((flags & O_CREAT) && (flags & O_EXCL) && std::getenv("VARNOK_REFUSE_NEW_FILES")) {
        errno = EPERM;
        return -1;
    }
    static const auto next =
        reinterpret_cast<int (*)(const char*, int, ...)>(dlsym(RTLD_NEXT, "open"));
    return next(path, flags, mode);
}
