#include "built_in_sheet_pixels.h"

// The pixels follow the program's read-only data, 64-byte aligned. Mapped from the program
// file, only the rows the map shows are ever read from disk or take memory.
asm(".section .rodata.varnok_sheet_pixels, \"a\", @progbits\n"
    ".balign 64\n"
    "varnokSheetPixelsBegin:\n"
    ".incbin \"" VARNOK_SHEET_PIXELS_FILE
    "\"\n"
    "varnokSheetPixelsEnd:\n"
    ".previous\n");

extern "C" const unsigned char varnokSheetPixelsBegin[];
extern "C" const unsigned char varnokSheetPixelsEnd[];

std::span<const unsigned char> builtInSheetPixels() {
    return {varnokSheetPixelsBegin, varnokSheetPixelsEnd};
}
