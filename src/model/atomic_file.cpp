#include "atomic_file.h"

#include "file_names.h"

#include <QRandomGenerator>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <climits>
#include <cstdlib>
#include <utility>

namespace {

// The file system will not make the new file beside the old one, or will not rename it: the
// file itself can still be written. A full disk or a folder without rights is no such case.
bool renameRefused(int error) {
    return error == EXDEV || error == EPERM || error == ENOTSUP || error == EOPNOTSUPP ||
           error == ENOSYS || error == EINVAL || error == EBUSY;
}

bool writeAll(int fd, const char* data, qint64 size) {
    while (size > 0) {
        const ssize_t written = ::write(fd, data, static_cast<std::size_t>(size));
        if (written < 0 && errno == EINTR) continue;
        if (written <= 0) {
            if (written == 0) errno = ENOSPC;
            return false;
        }
        data += written;
        size -= written;
    }
    return true;
}

// Copies what `from` holds, from its start, to `to`; errno on failure.
bool copyContent(int from, int to) {
    char buffer[64 * 1024];
    for (;;) {
        const ssize_t got = ::read(from, buffer, sizeof buffer);
        if (got < 0 && errno == EINTR) continue;
        if (got < 0) return false;
        if (got == 0) return true;
        if (!writeAll(to, buffer, got)) return false;
    }
}

// The whole of `name` copied over `backup` and on the disk.
bool backUp(const QByteArray& name, const QByteArray& backup, mode_t mode) {
    const int from = ::open(name.constData(), O_RDONLY | O_CLOEXEC);
    if (from < 0) return errno == ENOENT;  // nothing to keep
    const int to = ::open(backup.constData(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, mode);
    bool done = to >= 0 && copyContent(from, to) && ::fsync(to) == 0;
    const int error = errno;
    ::close(from);
    if (to >= 0 && ::close(to) != 0 && done) return false;
    errno = error;
    return done;
}

}  // namespace

AtomicFile::~AtomicFile() {
    discard();
}

void AtomicFile::discard() {
    const int error = errno;
    if (fd >= 0) ::close(fd);
    if (!temporaryName.isEmpty()) ::unlink(temporaryName.constData());
    fd = -1;
    temporaryName.clear();
    errno = error;
}

bool AtomicFile::open() {
    finalName = fileNameToBytes(target);
    // Through a link to the file it names, when that file exists.
    if (char resolved[PATH_MAX]; ::realpath(finalName.constData(), resolved)) finalName = resolved;
    const qsizetype slash = finalName.lastIndexOf('/');
    const QByteArray folder =
        slash < 0 ? QByteArray(".") : finalName.left(std::max<qsizetype>(slash, 1));
    const QByteArray base = finalName.mid(slash + 1);
    struct stat old {};
    const bool replacing = ::stat(finalName.constData(), &old) == 0;
    for (int attempt = 0; attempt < 100; ++attempt) {
        temporaryName = folder + '/' + '.' + base + '.' +
                        QByteArray::number(QRandomGenerator::global()->generate(), 36);
        // 0666 less the umask, as a new file gets; a replaced file's own mode below.
        fd = ::open(temporaryName.constData(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
        if (fd >= 0 || errno != EEXIST) break;
    }
    if (fd < 0) {
        temporaryName.clear();
        return renameRefused(errno) && openInPlace();
    }
    if (replacing && ::fchmod(fd, old.st_mode & 07777) != 0) {
        discard();
        return false;
    }
    return true;
}

bool AtomicFile::openInPlace() {
    struct stat old {};
    const mode_t mode = ::stat(finalName.constData(), &old) == 0 ? old.st_mode & 07777 : 0666;
    if (!backUp(finalName, finalName + '~', mode)) return false;
    inPlace = true;
    fd = ::open(finalName.constData(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, mode);
    return fd >= 0;
}

bool AtomicFile::write(const char* data, qint64 size) {
    if (writeAll(fd, data, size)) return true;
    discard();
    return false;
}

bool AtomicFile::commit() {
    if (fd < 0) return false;
    if (::fsync(fd) != 0 || ::close(fd) != 0) {
        fd = -1;
        discard();
        return false;
    }
    fd = -1;
    if (inPlace) return true;
    if (::rename(temporaryName.constData(), finalName.constData()) == 0) {
        temporaryName.clear();
        return true;
    }
    // The new content is whole beside the file: it is copied in once the old one is kept. The
    // folder took the new file, so a refusal of the rename is no missing right of its own.
    const int from = renameRefused(errno) || errno == EACCES
                         ? ::open(temporaryName.constData(), O_RDONLY | O_CLOEXEC)
                         : -1;
    const bool copied = from >= 0 && openInPlace() && copyContent(from, fd) && ::fsync(fd) == 0 &&
                        ::close(std::exchange(fd, -1)) == 0;
    const int error = errno;
    if (from >= 0) ::close(from);
    errno = error;
    discard();
    return copied;
}
