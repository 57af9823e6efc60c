#pragma once

#include <QByteArray>
#include <QByteArrayView>

class QIODevice;

// Reads lines that end at a carriage return, skipping one line feed right after it; a lone
// line feed belongs to the line. Reads in blocks, so a file costs time linear in its size.
class LineReader {
  public:
    // Reads at most `limit` bytes of the device; what lies beyond counts as its end.
    LineReader(QIODevice& device, qint64 limit) : device(device), unread(limit) {}

    bool atEnd();
    // The next line without its ending. At most `keep` bytes are kept; `length` is the line's
    // whole length, so an overlong line is measured without being held in memory. The text
    // stays valid until the next call of readLine or atEnd.
    struct Line {
        QByteArrayView text;
        qint64 length = 0;
    };
    Line readLine(qint64 keep);

  private:
    bool fill();

    QIODevice& device;
    QByteArray buffer;  // the block read last: its first `filled` bytes
    qsizetype filled = 0;
    QByteArray pieces;  // a line that spans blocks is gathered here
    qsizetype position = 0;
    qint64 unread;
    bool skipLineFeed = false;
};
