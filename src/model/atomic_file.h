#pragma once

#include <QString>

// Replaces a file by its exact name (see file_names.h) only once the new content is whole: it
// is written into a new file beside it, flushed to the disk and renamed over it, as QSaveFile
// does for the names Qt can hold. A name that is a link is written through: the link stays,
// the file it names gets the content. Every failure leaves errno saying why and the old file
// as it was, with nothing left beside it.
//
// Some folders (network shares, synchronised cloud folders, some FUSE file systems) refuse the
// new file beside it or the rename. There the old file is first copied to NAME~ beside it and
// then overwritten in place: should that write fail, NAME~ still holds the old content.
class AtomicFile {
  public:
    explicit AtomicFile(QString path) : target(std::move(path)) {}
    AtomicFile(const AtomicFile&) = delete;
    AtomicFile& operator=(const AtomicFile&) = delete;
    ~AtomicFile();

    [[nodiscard]] bool open();
    [[nodiscard]] bool write(const char* data, qint64 size);
    [[nodiscard]] bool commit();

  private:
    void discard();
    // Copies the old file to NAME~ and opens the file itself for writing from its start.
    bool openInPlace();

    bool inPlace = false;
    QString target;
    QByteArray finalName;  // the file written, links followed
    QByteArray temporaryName;
    int fd = -1;
};
