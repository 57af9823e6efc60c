#include "atomic_file.h"

#include "file_names.h"

#include <QRandomGenerator>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <climits>
#include <cstdlib>

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
        return false;
    }
    if (replacing && ::fchmod(fd, old.st_mode & 07777) != 0) {
        discard();
        return false;
    }
    return true;
}

bool AtomicFile::write(const char* data, qint64 size) {
    while (size > 0) {
        const ssize_t written = ::write(fd, data, static_cast<std::size_t>(size));
        if (written < 0 && errno == EINTR) continue;
        if (written <= 0) {
            if (written == 0) errno = ENOSPC;
            discard();
            return false;
        }
        data += written;
        size -= written;
    }
    return true;
}

bool AtomicFile::commit() {
    if (fd < 0) return false;
    if (::fsync(fd) != 0 || ::close(fd) != 0) {
        fd = -1;
        discard();
        return false;
    }
    fd = -1;
    if (::rename(temporaryName.constData(), finalName.constData()) != 0) {
        discard();
        return false;
    }
    temporaryName.clear();
    return true;
}
