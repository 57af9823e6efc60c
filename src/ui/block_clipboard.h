#pragma once

#include "block_text.h"

#include <QImage>

// What paste finds on the clipboard: a block of ours, nothing of ours (say so once), or a
// block refused with its reason; `message()` is the text to show when there is no block.
using BlockFromClipboard = BlockReading;

// A block of a level on the system clipboard, for this editor and for other programs: its
// text (also as plain text, for a chat or another editor) and its picture.
class BlockClipboard {
  public:
    // The private type under which the block's text travels between editors.
    static constexpr char MimeType[] = "application/x-varnok-block";

    // Replaces the clipboard's content with the block's text and `picture` (see blockPicture).
    void put(const LevelBlock& block, const QImage& picture) const;
    // Reads the block on the clipboard; a malformed one is refused whole.
    BlockFromClipboard take() const;
};
