#pragma once

#include "level.h"
#include "level_block.h"
#include "level_file.h"
#include "level_renderer.h"

#include <QColor>

#include <array>
#include <cstdint>
#include <memory>

// A level file read and drawn away from the document, as Open reads and draws it, waiting to
// become the document's level (LevelDocument::prepareOpen).
struct PreparedLevel {
    LevelReadResult read;
    std::unique_ptr<Level> level;            // as read; null when the file was refused
    std::unique_ptr<LevelRenderer> drawing;  // its grid and its wall frame drawn
    // The codes read in each rectangle of LevelRenderer::frameReach; empty blocks when no
    // frame was drawn.
    std::array<LevelBlock, 4> underFrame;
    bool painted = false;  // no code without a picture stopped the repaint
    // What the drawing started from: the document's wall generator and minimap colour then.
    std::uint32_t generatorStart = 0;
    QRgb drawingColourStart = 0;
};
