#include "editor_command_line.h"

#include "file_names.h"

#include "level_file.h"
#include "recent_files.h"

#include <QCommandLineParser>
#include <QDir>
#include <QFileInfo>

#include <optional>

#include <pwd.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

constexpr char Program[] = "varnok-editor";

EditorLaunch failure(int exitCode, const QString& message) {
    EditorLaunch launch;
    launch.exitCode = exitCode;
    launch.text = message;
    return launch;
}

QString helpText(const QList<QCommandLineOption>& options) {
    QString text = QStringLiteral(
                       "Použití: %1 [volby] [CESTA]\n"
                       "Editor uživatelského levelu ke hře Varnok.\n\n"
                       "CESTA je složka, ve které editor čte a ukládá %2, nebo soubor levelu\n"
                       "libovolného jména; nový soubor *.vrk vytvoří až Uložit. Obrázek %3 se\n"
                       "hledá vedle levelu, jinak se použije vestavěný. Bez CESTY editor pracuje\n"
                       "v aktuální složce.\n\nVolby:\n")
                       .arg(Program, LevelFileName, SpriteSheetFileName);
    for (const QCommandLineOption& option : options) {
        QStringList names;
        for (const QString& name : option.names())
            names << (name.size() == 1 ? QStringLiteral("-") : QStringLiteral("--")) + name;
        QString description = option.description();
        text += QStringLiteral("  %1%2\n")
                    .arg(names.join(QStringLiteral(", ")), -20)
                    .arg(description.replace('\n', QStringLiteral("\n%1").arg("", 22)));
    }
    text += QStringLiteral(
        "\nMyš a klávesy v okně:\n"
        "  levé tlačítko       kreslí vybraný předmět, pravé posouvá mapu\n"
        "  Shift + tah levým   vyplní obdélník od buňky stisku po buňku puštění;\n"
        "                      Esc jej během tahu zahodí\n"
        "  Ctrl + klik levým   vyplní souvislou oblast buněk se stejným obsahem\n"
        "                      (zeď jako jeden celek)\n"
        "  Ctrl + kolečko      vzdálí nebo přiblíží mapu kolem ukazatele\n"
        "  Ctrl+-, Ctrl++      vzdálí, přiblíží mapu (také Ctrl+=)\n"
        "  Ctrl+0, Ctrl+9      plná velikost, celý level v okně\n"
        "  Shift + tah pravým  vybere obdélník buněk; Ctrl+A vybere vše,\n"
        "                      Esc nebo klik výběr zruší\n"
        "  Ctrl+C, Ctrl+X      zkopíruje, vyřízne výběr (i do schránky, jako text\n"
        "                      a obrázek); Delete jej smaže na podlahu\n"
        "  Ctrl+V              vloží blok ze schránky (i z jiného editoru): jde\n"
        "                      s ukazatelem, levý klik jej položí, Esc zahodí;\n"
        "                      přesun je Ctrl+X a Ctrl+V\n"
        "  Ctrl+Z, Ctrl+Y      zpět, znovu (také Ctrl+Shift+Z)\n"
        "  Ctrl+S, Ctrl+O, Ctrl+N  Uložit, Otevřít, Nový; F1 nápověda\n"
        "  Ctrl+Shift+O        otevře jiný soubor levelu (vybraný v dialogu)\n"
        "  Ctrl+Shift+S        uloží level pod jiným jménem; dál se pracuje s ním\n");
    return text;
}

// What stands at a path, asked by its exact name.
struct PathStatus {
    bool exists = false;
    bool folder = false;
    bool file = false;
};
PathStatus statusAt(const QString& path) {
    struct stat info {};
    if (!statusOf(path, info)) return {};
    return {true, S_ISDIR(info.st_mode), S_ISREG(info.st_mode)};
}

// The level file must be readable when it exists. Whether it can be saved is Save's question,
// however the level was named: a read-only level opens, and Save then says why it cannot.
std::optional<QString> unusable(const QString& level) {
    const PathStatus status = statusAt(level);
    if (status.exists && !status.file)
        return QStringLiteral("%1 není soubor levelu.").arg(shownFileName(level));
    if (status.exists && ::access(fileNameToBytes(level).constData(), R_OK) != 0)
        return QStringLiteral("Soubor %1 nelze číst.").arg(shownFileName(level));
    return std::nullopt;
}

}  // namespace

EditorLaunch parseEditorCommandLine(const QStringList& arguments, const QString& currentFolder,
                                    const QString& homeFolder) {
    const QList<QCommandLineOption> options = {
        {{"h", "help"}, QStringLiteral("vypíše tuto nápovědu")},
        {{"v", "version"}, QStringLiteral("vypíše verzi editoru")},
        {"varnok-folder", QStringLiteral("bez CESTY pracuje ve složce ~/%1, chybí-li, vytvoří ji\n"
                                         "(tak editor spouští nabídka plochy)")
                              .arg(MenuFolderName)},
        {"recent", QStringLiteral("vypíše naposledy použité soubory levelů, nejnovější první")}};
    QCommandLineParser parser;
    parser.addOptions(options);
    parser.addPositionalArgument(QStringLiteral("CESTA"), {});
    const QString seeHelp = QStringLiteral(" Nápovědu vypíše %1 --help.").arg(Program);
    if (!parser.parse(arguments)) {
        const QStringList unknown = parser.unknownOptionNames();
        if (unknown.isEmpty())
            return failure(
                2, QStringLiteral("Chybně zadaná volba (žádná z nich nebere hodnotu).") + seeHelp);
        const QString dashes = unknown.first().size() == 1 ? "-" : "--";
        return failure(
            2, QStringLiteral("Neznámá volba %1%2.").arg(dashes, unknown.first()) + seeHelp);
    }

    EditorLaunch launch;
    if (parser.isSet(QStringLiteral("help")) || parser.isSet(QStringLiteral("version"))) {
        launch.action = EditorLaunch::Action::Print;
        launch.text = parser.isSet(QStringLiteral("help"))
                          ? helpText(options)
                          : QStringLiteral("%1 %2\n").arg(Program, VARNOK_VERSION);
        return launch;
    }
    if (parser.isSet(QStringLiteral("recent"))) {
        launch.action = EditorLaunch::Action::Print;
        for (const QString& file : RecentFiles().files()) launch.text += file + '\n';
        return launch;
    }
    const QStringList paths = parser.positionalArguments();
    if (paths.size() > 1)
        return failure(2, QStringLiteral("Zadejte nejvýš jednu CESTU.") + seeHelp);

    QString level;
    if (!paths.isEmpty()) {
        const QString path = QDir::cleanPath(QDir(currentFolder).absoluteFilePath(paths[0]));
        const QString folder = QFileInfo(path).absolutePath();
        const PathStatus status = statusAt(path);
        const bool levelName = QFileInfo(path).suffix().compare("vrk", Qt::CaseInsensitive) == 0;
        if (status.folder) {
            level = QDir(path).filePath(LevelFileName);
        } else if (status.exists && !status.file) {
            return failure(1,
                           QStringLiteral("%1 není soubor ani složka.").arg(shownFileName(path)));
        } else if (status.exists || (levelName && statusAt(folder).folder)) {
            level = path;
        } else if (!statusAt(folder).folder) {
            return failure(1, QStringLiteral("Složka %1 neexistuje.").arg(shownFileName(folder)));
        } else {
            return failure(
                1, QStringLiteral("Soubor ani složka %1 neexistuje.").arg(shownFileName(path)));
        }
    } else if (parser.isSet(QStringLiteral("varnok-folder"))) {
        if (homeFolder.isEmpty())
            return failure(1, QStringLiteral("Nevím, kde je vaše domovská složka (HOME není "
                                             "nastavena a uživatel žádnou nemá), a tak ani "
                                             "složku ~/%1; zadejte CESTU.")
                                  .arg(MenuFolderName));
        const QString folder = QDir(homeFolder).absoluteFilePath(MenuFolderName);
        if (!QDir().mkpath(folder))
            return failure(1, QStringLiteral("Složku %1 nelze vytvořit.").arg(folder));
        level = QDir(folder).filePath(LevelFileName);
    } else {
        // The current folder is taken as it is, whatever can be done there.
        level = QDir(currentFolder).filePath(LevelFileName);
    }
    if (!paths.isEmpty() || parser.isSet(QStringLiteral("varnok-folder"))) {
        if (const auto message = unusable(level)) return failure(1, *message);
    }

    launch.action = EditorLaunch::Action::Run;
    launch.levelFile = cleanAbsolutePath(level);
    launch.spriteSheet = spriteSheetBeside(launch.levelFile);
    return launch;
}

QString userHomeFolder() {
    const QString fromEnvironment = qEnvironmentVariable("HOME");
    if (!fromEnvironment.isEmpty()) return fromEnvironment;
    // Without HOME, the user database's entry; never the root of the file system by default.
    const passwd* user = getpwuid(getuid());
    return user && user->pw_dir && *user->pw_dir ? QFile::decodeName(user->pw_dir) : QString();
}
