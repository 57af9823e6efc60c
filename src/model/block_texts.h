#pragma once

#include <QString>

// What the editor says about a block on the clipboard, exactly as the user sees it: that the
// clipboard holds nothing of ours, or why a block there is refused.
namespace BlockTexts {

// The clipboard holds something, but no block of a level.
QString notOurs();
// A block that cannot be pasted: the sentence around one of the reasons below.
QString refused(const QString& reason);

QString badHeader();
QString unknownVersion(const QByteArray& version);
QString badSize(const QByteArray& width, const QByteArray& height);
QString tooLarge(const QByteArray& width, const QByteArray& height, int largest);
QString missingRows(int expected, int found);
QString extraRows(int expected);
QString wrongRowLength(int row, qsizetype length, int width);
QString unknownCode(int row, int column, int code);

}  // namespace BlockTexts
