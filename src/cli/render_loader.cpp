#include "command_line.h"
#include "commands.h"
#include "console.h"
#include "render_module.h"

#include <QCoreApplication>
#include <QDir>
#include <QLibrary>

int runRender(const Invocation& invocation) {
    // The module lies beside the program in a build, under libexec once installed (a private
    // module: no ldconfig).
    const QDir programs(QCoreApplication::applicationDirPath());
    QLibrary module(programs.filePath(QStringLiteral(VARNOK_RENDER_MODULE)));
    if (!module.load())
        module.setFileName(programs.filePath(
            QStringLiteral(VARNOK_INSTALLED_MODULE_DIR "/" VARNOK_RENDER_MODULE)));
    const auto entry = reinterpret_cast<RenderEntry>(module.resolve(RenderEntryName));
    if (!entry) {
        printError(QStringLiteral("varnok-level: Nelze načíst modul pro vykreslování: ") +
                   module.errorString());
        return ExitFailed;
    }
    return entry(invocation);
}
