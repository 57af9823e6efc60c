#pragma once

#include "level_block.h"

#include <QByteArray>
#include <QByteArrayView>
#include <QString>

// A block of a level as text, for the clipboard: the first line "VARNOK-BLOK 1 W H" marks it
// as a block of this editor and gives the format version, the width and the height; then come
// H lines of W cells, each cell the byte the level file stores for its code (48 + code), and
// every line, the last included, ends in CR LF as in the level file.
inline constexpr char BlockTextMark[] = "VARNOK-BLOK";
inline constexpr int BlockTextVersion = 1;

QByteArray encodeBlockText(const LevelBlock& block);

// What a text turned out to be.
struct BlockReading {
    enum class Outcome {
        NotOurs,  // no block of ours at all: its first line does not begin with the mark
        Block,    // a block, every cell with a picture
        Refused,  // marked as ours, but malformed or too large; `reason` says why
    };
    Outcome outcome = Outcome::NotOurs;
    LevelBlock block;
    QString reason;

    bool isBlock() const { return outcome == Outcome::Block; }
    // What to tell the user when there is no block to paste; empty for a block.
    QString message() const;
};

// Reads a block; a malformed one is refused whole. Lines may also end in a line feed alone,
// and a text whose cells went through a program that re-encoded each byte as UTF-8 reads as
// the bytes it started from.
BlockReading readBlockText(QByteArrayView text);
