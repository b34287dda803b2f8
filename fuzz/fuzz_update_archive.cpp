// Foreign bytes as the archive of an update that was already found to be the maker's. Either nothing is changed, or a whole
// bundle that starts has taken the place of the installed one; beside it everything stays as it was.
#include "desktop/platform/BundleInstall.h"
#include "support/Files.h"

#include <QDirIterator>
#include <QMap>
#include <QTemporaryDir>

#include <cstdlib>

namespace {

const QString kProgram = QStringLiteral("Contents/MacOS/kesmira");

void demand(bool holds)
{
    if (!holds) std::abort();
}

/// Path below `folder` -> bytes of the file, or where the link leads.
QMap<QString, QByteArray> treeOf(const QString &folder)
{
    QMap<QString, QByteArray> tree;
    QDirIterator it(folder, QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot,
                    QDirIterator::Subdirectories);
    while (it.hasNext()) {
        const QFileInfo info(it.next());
        tree[info.filePath()] = info.isSymLink() ? info.symLinkTarget().toUtf8()
            : info.isFile()                      ? contents(info.filePath())
                                                 : QByteArray();
    }
    return tree;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    static const QTemporaryDir room;
    const QString apps = QFileInfo(room.path()).canonicalFilePath() + "/apps";
    const QString bundle = apps + "/Kesmira.app";
    QDir(apps).removeRecursively();
    write(bundle + '/' + kProgram, "old program");
    write(apps + "/Other.app/beside", "beside");
    write(room.filePath("update.zip"), QByteArray(reinterpret_cast<const char *>(data), int(size)));
    QMap<QString, QByteArray> before = treeOf(room.path());
    const QString problem =
        installBundleFromArchive(room.filePath("update.zip"), QStringLiteral("Kesmira.app"), kProgram, apps);
    QMap<QString, QByteArray> after = treeOf(room.path());
    if (problem.isEmpty()) {
        const QFileInfo program(bundle + '/' + kProgram);
        demand(program.isFile() && !program.isSymLink() && program.isExecutable());
        for (auto each = after.begin(); each != after.end(); ++each) {
            const QFileInfo info(each.key());
            if (info.isSymLink()) demand(info.canonicalFilePath().startsWith(bundle + '/'));
        }
        // The first bundle that goes may be the one that runs, and is kept.
        static QString kept;
        const QStringList aside = QDir(apps).entryList({".*"}, QDir::Dirs | QDir::Hidden | QDir::NoDotAndDotDot);
        if (kept.isEmpty() && aside.size() == 1) kept = aside[0];
        demand(!kept.isEmpty());
        const auto ofBundle = [&](const QString &path) {
            return path.startsWith(bundle + '/') || (path + '/').startsWith(apps + '/' + kept + '/');
        };
        for (auto *tree : {&before, &after})
            for (const QString &path : tree->keys())
                if (ofBundle(path)) tree->remove(path);
    }
    demand(after == before);
    return 0;
}
