#include "architecture/ArchitectureRules.h"

#include <QFileInfo>
#include <QLibraryInfo>
#include <QRegularExpression>

namespace architecture {
namespace {

/// A folder of src/, the folders that it may include beside itself, and the Qt modules that it may use.
struct Room
{
    QString name;
    QStringList rooms;
    QStringList modules;
};

const QVector<Room> &rooms()
{
    static const QStringList engineSide{"save", "engine", "decoder", "tables", "app"};
    static const QStringList plain{"QtCore", "QtGui"};
    static const QStringList desktop{"QtCore", "QtGui", "QtWidgets", "QtNetwork", "QtDBus"};
    static const QVector<Room> all{
        {"app", {}, plain},
        {"tables", {"app"}, plain},
        {"salvage", {}, plain},
        {"decoder", {}, plain},
        {"engine", {"decoder", "tables", "app", "salvage"}, plain},
        {"decoderchild", {"decoder", "engine"}, plain},
        {"save", {"engine", "tables", "app"}, plain},
        {"batch", engineSide, plain},
        {"fileutil", engineSide + QStringList{"desktop"}, plain + QStringList{"QtWidgets"}},
        {"desktop", engineSide, desktop},
        {"dialogs", engineSide + QStringList{"desktop"}, desktop},
        {"update", engineSide + QStringList{"desktop", "dialogs"}, desktop},
        {"window", engineSide + QStringList{"desktop", "dialogs", "update"}, desktop},
        {"main", engineSide + QStringList{"desktop", "window"}, desktop},
    };
    return all;
}

const Room *roomOf(const QString &pathBelowSrc)
{
    // The window program's main is the one file of its folder that knows widgets.
    const QString name = pathBelowSrc == "app/main.cpp" ? "main" : pathBelowSrc.section('/', 0, 0);
    for (const Room &room : rooms()) {
        if (room.name == name) return &room;
    }
    return nullptr;
}

bool isListed(const QString &from, const QString &header, QVector<int> &used)
{
    const QVector<ListedException> &all = listedExceptions();
    for (int i = 0; i < all.size(); ++i) {
        const bool covers = all[i].from == from || (all[i].from.endsWith('/') && from.startsWith(all[i].from));
        if (!covers || all[i].header != header) continue;
        used << i;
        return true;
    }
    return false;
}

/// "" if Qt's header `name` belongs to one of the modules. Asks the installed Qt where it lies: no list of names to keep.
QString qtComplaint(const QString &name, const QStringList &modules)
{
    const QString headers = QLibraryInfo::location(QLibraryInfo::HeadersPath);
    for (const QString &module : modules) {
        if (name.startsWith(module + '/')) return {};
        if (QFileInfo::exists(headers + '/' + module + '/' + name)) return {};
    }
    return QString("<%1> is in none of %2").arg(name, modules.join(", "));
}

QString complaint(const Room &room, const QString &from, QChar bracket, const QString &header, QVector<int> &used)
{
    static const QRegularExpression ofQt("^(Qt?[A-Z]|q.*\\.h$)");
    const Room *target = roomOf(header);
    if (!target) {
        if (bracket == '"') return QString("\"%1\" doesn't begin with a folder of src/").arg(header);
        return ofQt.match(header).hasMatch() ? qtComplaint(header, room.modules) : QString();
    }
    if (target->name == room.name || room.rooms.contains(target->name) || isListed(from, header, used)) return {};
    return QString("%1 may not include %2 (%3)").arg(room.name, target->name, header);
}

} // namespace

const QVector<ListedException> &listedExceptions()
{
    static const QVector<ListedException> all{
        {"app/KesmiraApp.h", "engine/RepairReport.h", "plain data that the application object holds"},
        {"engine/", "save/SaveFile.h", "the dispatch hands the walked chain to the writer"},
        {"engine/", "save/WipeFolder.h", "a run begins where the results of the last one are wiped"},
        {"engine/", "save/ScratchFolder.h", "and makes its own folder for scratch"},
        {"engine/", "save/ScratchFile.h",
         "the second way, the sample rebuild and the raw scanners write files of their own"},
    };
    return all;
}

QStringList wrongIncludes(const QString &path, const QString &text, QVector<int> &used)
{
    static const QRegularExpression include("^\\s*#\\s*include\\s*([\"<])([^\">]+)[\">]");
    const QString from = path.mid(int(qstrlen("src/")));
    const Room *room = roomOf(from);
    if (!room) return {QString("%1:1: no room is called %2").arg(path, from.section('/', 0, 0))};

    QStringList found;
    const QStringList lines = text.split('\n');
    for (int i = 0; i < lines.size(); ++i) {
        const QRegularExpressionMatch match = include.match(lines[i]);
        if (!match.hasMatch()) continue;
        const QString wrong = complaint(*room, from, match.captured(1)[0], match.captured(2), used);
        if (!wrong.isEmpty()) found << QString("%1:%2: %3").arg(path).arg(i + 1).arg(wrong);
    }
    return found;
}

QString tooLong(const QString &path, const QString &text, int most)
{
    const int lines = text.count('\n');
    if (lines <= most) return {};
    return QString("%1:%2: over %3 lines; a file this long usually holds two tasks").arg(path).arg(lines).arg(most);
}

QStringList outsideReferences(const QString &path, const QString &text)
{
    // The brackets keep these very lines from being found.
    static const QRegularExpression leaning("(?i:\\b[s]pecification)|\\b[s]pec\\b|\\b[P]art [0-9]|\\bthe [P]arts?\\b"
                                            "|(?i:\\b[i]ssue #?[0-9])|/[w]ork/|\\.\\./[s]hared");
    QStringList found;
    const QStringList lines = text.split('\n');
    for (int i = 0; i < lines.size(); ++i) {
        const QRegularExpressionMatch match = leaning.match(lines[i]);
        // The default place of the real photographs has to stand somewhere, once.
        if (!match.hasMatch() || (path == "CMakeLists.txt" && lines[i].contains("KESMIRA_CORPUS"))) continue;
        found << QString("%1:%2: \"%3\" leans on something outside of the tree")
                     .arg(path)
                     .arg(i + 1)
                     .arg(match.captured());
    }
    return found;
}

} // namespace architecture
