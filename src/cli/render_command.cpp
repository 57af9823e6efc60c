#include "atomic_file.h"
#include "command_line.h"
#include "commands.h"
#include "console.h"
#include "file_names.h"
#include "file_reasons.h"
#include "level.h"
#include "level_file.h"
#include "level_picture.h"
#include "level_renderer.h"
#include "level_report.h"
#include "png_encoder.h"
#include "render_module.h"
#include "sprite_sheet.h"
#include "tile_codes.h"

#include <QBuffer>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>
#include <QImageWriter>

#include <cerrno>
#include <cstring>
#include <ctime>

namespace {

int fail(const QString& message) {
    printError(QStringLiteral("varnok-level: ") + message);
    return ExitFailed;
}

// The sheet the user named, which must be usable; else the editor's choice: EditPic.jpg
// beside the level when it can be used, the built-in sheet otherwise. Empty on failure,
// with `problem` saying why.
SpriteSheet chooseSheet(const Invocation& invocation, QString& problem) {
    SpriteSheet::FileState state{};
    const bool named = !invocation.sheet.isEmpty();
    const QString path =
        named ? invocation.sheet
              : QDir::cleanPath(
                    QFileInfo(invocation.files.front()).dir().filePath(SpriteSheetFileName));
    SpriteSheet sheet = SpriteSheet::fromFileOrBuiltIn(path, state);
    // The editor's words for a sheet it cannot use.
    const QString unusable =
        QStringLiteral(
            "Obrázek %1 nelze načíst (je poškozený, neúplný, nebo menší než %2 × %3 "
            "pixelů)")
            .arg(shownFileName(path))
            .arg(SheetColumns)
            .arg(SheetRows);
    if (named && state == SpriteSheet::FileState::Missing)
        problem = QStringLiteral("Obrázek %1 nebyl nalezen.").arg(shownFileName(path));
    else if (named && state == SpriteSheet::FileState::Unusable)
        problem = unusable + QStringLiteral(".");
    else if (state == SpriteSheet::FileState::Unusable)
        printError(QStringLiteral("varnok-level: %1, použije se vestavěný.").arg(unusable));
    if (problem.isEmpty() && sheet.image().isNull())
        problem = QStringLiteral("Vestavěné obrázky objektů nelze načíst (chybí modul pro JPEG?).");
    return problem.isEmpty() ? sheet : SpriteSheet();
}

// With VARNOK_LEVEL_TIMES set, how long each step took goes to standard error as wall and
// processor milliseconds, so a benchmark can tell the encoder's share from the rest in one run.
class StepTimes {
  public:
    void lap(const char* step) {
        const std::clock_t now = std::clock();
        laps += QStringLiteral(" %1 %2/%3")
                    .arg(QLatin1String(step))
                    .arg(double(clock.restart()), 0, 'f', 0)
                    .arg(1000.0 * double(now - processor) / CLOCKS_PER_SEC, 0, 'f', 0);
        processor = now;
    }
    ~StepTimes() {
        if (qEnvironmentVariableIsSet("VARNOK_LEVEL_TIMES"))
            printError(QStringLiteral("varnok-level: ms:") + laps);
    }

  private:
    QElapsedTimer clock = [] {
        QElapsedTimer started;
        started.start();
        return started;
    }();
    std::clock_t processor = std::clock();
    QString laps;
};

// The image format the output's name asks for; PNG when it names none.
QByteArray formatFor(const QString& output) {
    const QString suffix = QFileInfo(output).suffix().toLower();
    return suffix.isEmpty() ? QByteArrayLiteral("png") : suffix.toLatin1();
}

}  // namespace

extern "C" Q_DECL_EXPORT int varnokLevelRender(const Invocation& invocation) {
    const QString& file = invocation.files.front();
    StepTimes times;
    Level level;
    const LevelReadResult read = readLevelFile(level, file);
    if (!read.ok()) return fail(read.refusal);
    // The editor shows this and goes on with the rows it read.
    if (!read.warning.isEmpty()) printError(QStringLiteral("varnok-level: ") + read.warning);
    if (level.width() == 0 || level.height() == 0)
        return fail(QStringLiteral("Level v souboru %1 má rozměr %2 × %3, není co vykreslit.")
                        .arg(shownFileName(file))
                        .arg(level.width())
                        .arg(level.height()));

    // Refused before any drawing, with the largest cell size that fits.
    const int cellSize = invocation.cellSize.value_or(TileSize);
    const int largest = largestCellSize(level.width(), level.height());
    if (!invocation.minimap && cellSize > largest)
        return fail(QStringLiteral("Obrázek %1 × %2 pixelů by byl příliš velký (nejvýš %3 pixelů); "
                                   "zkuste --cell-size %4.")
                        .arg(qint64(level.width()) * cellSize)
                        .arg(qint64(level.height()) * cellSize)
                        .arg(MaxPicturePixels)
                        .arg(largest));
    if (const std::optional<QPoint> cell = firstCellWithoutPicture(level))
        return fail(noPictureMessage(file, level, *cell) +
                    QStringLiteral(" Editor level nezobrazí."));
    const QByteArray format = formatFor(invocation.output);
    // PNG is built into Qt; asking for the others loads every image plugin.
    if (format != "png" && !QImageWriter::supportedImageFormats().contains(format)) {
        QStringList suffixes;
        for (const QByteArray& known : QImageWriter::supportedImageFormats())
            suffixes << QStringLiteral(".") + QString::fromLatin1(known);
        // A name the program cannot write is a usage error: nothing was read or drawn.
        printError(QStringLiteral("varnok-level: Obrázek %1: přípona „.%2“ není formát obrázku, "
                                  "který umím zapsat; použijte jednu z těchto: %3.")
                       .arg(shownFileName(invocation.output),
                            shownFileName(QFileInfo(invocation.output).suffix()),
                            suffixes.join(QStringLiteral(", "))));
        return ExitWrongUsage;
    }

    QString problem;
    const SpriteSheet sheet = invocation.minimap ? SpriteSheet() : chooseSheet(invocation, problem);
    if (!problem.isEmpty()) return fail(problem);
    times.lap("load");  // the level and the sheet

    // Written beside the target and renamed over it only when complete: a failure leaves no
    // half-written picture and an older one as it was. Opened before any drawing, so that a
    // place it cannot be written to is told at once.
    AtomicFile out(invocation.output);
    const auto unsaved = [&](const QString& reason) {
        return fail(QStringLiteral("Obrázek %1 nelze uložit: %2")
                        .arg(shownFileName(invocation.output), reason));
    };
    const auto systemReason = [] { return QString::fromLocal8Bit(strerror(errno)); };
    if (const QString refusal = notAPlainFile(invocation.output); !refusal.isEmpty())
        return unsaved(refusal);
    if (!out.open()) return unsaved(systemReason());

    LevelRenderer renderer(level);
    if (!redrawAsAtStartUp(renderer))
        return fail(noPictureMessage(file, level, firstCellWithoutPicture(level).value()));
    times.lap("redraw");
    const QImage picture = invocation.minimap ? minimapPicture(renderer.minimap())
                                              : mapPicture(renderer.map(), sheet, cellSize);
    if (picture.isNull()) return unsaved(QStringLiteral("na obrázek není dost paměti"));
    times.lap("picture");
    // Encoded in memory first, so that the disk's refusal is told with its reason, which an
    // encoder writing straight to the file would turn into a failure of its own.
    QByteArray encoded;
    if (format == "png") {
        encoded = encodePng(picture.convertToFormat(QImage::Format_RGB32));
        if (encoded.isEmpty()) return unsaved(QStringLiteral("na obrázek není dost paměti"));
    } else {
        QBuffer buffer(&encoded);
        buffer.open(QIODevice::WriteOnly);
        QImageWriter writer(&buffer, format);
        if (!writer.write(picture)) return unsaved(writer.errorString());
    }
    times.lap("encode");
    if (!out.write(encoded.constData(), encoded.size()) || !out.commit())
        return unsaved(systemReason());
    times.lap("write");
    return ExitOk;
}
