#pragma once

#include <span>

// The built-in sprite sheet (the resource sheet/EditPic.jpg) as the editor's JPEG decoder
// gives it, decoded when the program is built: rows of 32-bit pixels 0xffRRGGBB, top to
// bottom, BuiltInSheetWidth x BuiltInSheetHeight. Starting with that sheet decodes nothing.
inline constexpr int BuiltInSheetWidth = 640;
inline constexpr int BuiltInSheetHeight = 896;
std::span<const unsigned char> builtInSheetPixels();
