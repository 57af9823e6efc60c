#include "level_document.h"

#include <QFile>

LevelDocument::LevelDocument(QString levelFile, QString spriteSheetFile, QObject* parent)
    : QObject(parent), levelPath(std::move(levelFile)), sheetPath(std::move(spriteSheetFile)) {}

LevelDocument::LevelDocument(const QDir& folder, QObject* parent)
    : LevelDocument(folder.filePath(LevelFileName), folder.filePath(SpriteSheetFileName), parent) {}

bool LevelDocument::loadSpriteSheet() {
    QImage image;
    const bool present = QFile::exists(sheetPath);
    const bool usable = present && image.load(sheetPath) && SpriteSheet::usable(image);
    spriteSheet = usable ? SpriteSheet(image) : SpriteSheet::builtIn();
    return usable || !present;
}

void LevelDocument::newLevel(int width, int height) {
    currentLevel.reset(width, height);
}

LevelReadResult LevelDocument::open() {
    return readLevelFile(currentLevel, levelPath);
}

LevelWriteResult LevelDocument::save() const {
    return writeLevelFile(currentLevel, levelPath);
}

bool LevelDocument::repaintGrid() {
    return renderer.repaintGrid();
}

void LevelDocument::drawFrame(int tool) {
    renderer.drawFrame(tool);
}

void LevelDocument::applyTool(int x, int y, int tool) {
    renderer.tools().applyTool(x, y, tool);
}
