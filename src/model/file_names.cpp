#include "file_names.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>

namespace {
constexpr char16_t FirstKeptByte = 0xDC80;  // U+DC80 + (byte - 0x80)

// The length of the valid UTF-8 sequence at `at`, or 0 when the byte there starts none.
int validSequence(const unsigned char* at, qsizetype left) {
    const unsigned char lead = at[0];
    int length = 0;
    char32_t lowest = 0;
    if (lead < 0x80) return 1;
    if ((lead & 0xE0) == 0xC0)
        length = 2, lowest = 0x80;
    else if ((lead & 0xF0) == 0xE0)
        length = 3, lowest = 0x800;
    else if ((lead & 0xF8) == 0xF0)
        length = 4, lowest = 0x10000;
    else
        return 0;
    if (left < length) return 0;
    char32_t code = lead & (0x7F >> length);
    for (int i = 1; i < length; ++i) {
        if ((at[i] & 0xC0) != 0x80) return 0;
        code = (code << 6) | (at[i] & 0x3F);
    }
    // Overlong forms, surrogates and code points past Unicode are no UTF-8.
    if (code < lowest || code > 0x10FFFF || (code >= 0xD800 && code <= 0xDFFF)) return 0;
    return length;
}
}  // namespace

QString fileNameFromBytes(const QByteArray& bytes) {
    QString name;
    const auto* data = reinterpret_cast<const unsigned char*>(bytes.constData());
    for (qsizetype i = 0; i < bytes.size();) {
        const int length = validSequence(data + i, bytes.size() - i);
        if (length == 0) {
            name += QChar(char16_t(FirstKeptByte + (data[i] - 0x80)));
            ++i;
        } else {
            name += QString::fromUtf8(bytes.constData() + i, length);
            i += length;
        }
    }
    return name;
}

QByteArray fileNameToBytes(const QString& name) {
    if (!hasForeignBytes(name)) return name.toUtf8();
    QByteArray bytes;
    for (qsizetype i = 0; i < name.size(); ++i) {
        const char16_t unit = name[i].unicode();
        if (unit >= FirstKeptByte && unit <= FirstKeptByte + 0x7F) {
            bytes += char(0x80 + (unit - FirstKeptByte));
        } else if (name[i].isHighSurrogate() && i + 1 < name.size()) {
            bytes += name.mid(i, 2).toUtf8();
            ++i;
        } else {
            bytes += QString(name[i]).toUtf8();
        }
    }
    return bytes;
}

bool hasForeignBytes(const QString& name) {
    for (const QChar c : name) {
        if (c.unicode() >= FirstKeptByte && c.unicode() <= FirstKeptByte + 0x7F) return true;
    }
    return false;
}

QString shownFileName(const QString& name) {
    if (!hasForeignBytes(name)) return name;
    QString shown;
    for (const QChar c : name) {
        const char16_t unit = c.unicode();
        if (unit >= FirstKeptByte && unit <= FirstKeptByte + 0x7F)
            shown += QStringLiteral("\\x%1").arg(0x80 + (unit - FirstKeptByte), 2, 16);
        else
            shown += c;
    }
    return shown;
}

QString cleanAbsolutePath(const QString& path) {
    return QDir::cleanPath(QFileInfo(path).absoluteFilePath());
}

bool statusOf(const QString& path, struct stat& info) {
    return ::stat(fileNameToBytes(path).constData(), &info) == 0;
}

bool openForReading(QFile& file, const QString& path) {
    const int fd = ::open(fileNameToBytes(path).constData(), O_RDONLY | O_CLOEXEC | O_NONBLOCK);
    if (fd < 0) return false;
    // Reads block as usual from here on; only the open must not wait for a pipe's writer.
    ::fcntl(fd, F_SETFL, ::fcntl(fd, F_GETFL) & ~O_NONBLOCK);
    if (file.open(fd, QIODevice::ReadOnly, QFileDevice::AutoCloseHandle)) return true;
    const int error = errno;
    ::close(fd);
    errno = error ? error : EIO;
    return false;
}
