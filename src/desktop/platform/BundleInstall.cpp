#include "desktop/platform/BundleInstall.h"

#include <QCoreApplication>
#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QFileInfo>

#include <archive.h>
#include <archive_entry.h>

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <fcntl.h>
#include <memory>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

namespace {

constexpr la_int64_t kBytes = la_int64_t(2) << 30;
constexpr int kEntries = 100000;

using Reader = std::unique_ptr<archive, decltype(&archive_read_free)>;
using Writer = std::unique_ptr<archive, decltype(&archive_write_free)>;

/// Lets lupdate find the texts in a file without a class.
struct Install
{
    Q_DECLARE_TR_FUNCTIONS(BundleInstall)
};

QString systemError()
{
    return QString::fromLocal8Bit(std::strerror(errno));
}

/// A path that stays below the folder it is unpacked to.
bool staysInside(const QString &path)
{
    return !path.isEmpty() && !path.startsWith('/') && !path.contains('\\') && !path.split('/').contains("..");
}

/// Where a link at `path` leads, seen from the folder: it must not climb out on its way.
bool linkStaysInside(const QString &path, const QString &target)
{
    if (target.isEmpty() || target.startsWith('/')) return false;
    int depth = int(path.count('/'));
    for (const QString &part : target.split('/', Qt::SkipEmptyParts)) {
        if (part == "..") --depth;
        if (part != ".." && part != ".") ++depth;
        if (depth < 0) return false;
    }
    return true;
}

bool isAllowed(archive_entry *entry)
{
    const QString path = QString::fromUtf8(archive_entry_pathname(entry));
    if (!staysInside(path) || archive_entry_hardlink(entry)) return false;
    switch (archive_entry_filetype(entry)) {
    case AE_IFREG:
    case AE_IFDIR: return true;
    case AE_IFLNK: return linkStaysInside(path, QString::fromUtf8(archive_entry_symlink(entry)));
    default: return false;
    }
}

bool copyData(archive *reader, archive *writer, la_int64_t &left)
{
    const void *block = nullptr;
    size_t size = 0;
    la_int64_t offset = 0;
    for (;;) {
        const int got = archive_read_data_block(reader, &block, &size, &offset);
        if (got == ARCHIVE_EOF) return true;
        // A warning is an error here: what can't be read whole must not be run.
        if (got != ARCHIVE_OK) return false;
        left -= la_int64_t(size);
        if (left < 0) return false;
        if (archive_write_data_block(writer, block, size, offset) != ARCHIVE_OK) return false;
    }
}

/// Returns "" or what is wrong.
QString unpack(const QString &path, const QString &folder)
{
    const Reader reader(archive_read_new(), archive_read_free);
    archive_read_support_format_zip(reader.get());
    if (archive_read_open_filename(reader.get(), QFile::encodeName(path).constData(), 64 * 1024) != ARCHIVE_OK)
        return Install::tr("The update can't be read.");
    const Writer writer(archive_write_disk_new(), archive_write_free);
    archive_write_disk_set_options(writer.get(),
                                   ARCHIVE_EXTRACT_PERM | ARCHIVE_EXTRACT_SECURE_NODOTDOT
                                       | ARCHIVE_EXTRACT_SECURE_SYMLINKS | ARCHIVE_EXTRACT_NO_OVERWRITE);
    la_int64_t left = kBytes;
    archive_entry *entry = nullptr;
    for (int count = 0;; ++count) {
        const int got = archive_read_next_header(reader.get(), &entry);
        if (got == ARCHIVE_EOF) return count > 0 ? QString() : Install::tr("The update is empty.");
        if (got != ARCHIVE_OK || count >= kEntries) return Install::tr("The update is damaged.");
        if (!isAllowed(entry)) return Install::tr("The update holds what doesn't belong there, and was refused.");
        const QString target = folder + '/' + QString::fromUtf8(archive_entry_pathname(entry));
        archive_entry_set_pathname(entry, QFile::encodeName(target).constData());
        archive_entry_set_perm(entry, (archive_entry_perm(entry) & 0755) | 0600); // no right of its owner is taken over
        if (archive_write_header(writer.get(), entry) != ARCHIVE_OK || !copyData(reader.get(), writer.get(), left)
            || archive_write_finish_entry(writer.get()) != ARCHIVE_OK)
            return Install::tr("The update can't be unpacked: it is damaged, or the disk is full.");
    }
}

/// True if every link below `bundle` leads to something in it, whichever other links it passes on its way.
bool linksStayIn(const QString &bundle)
{
    QDirIterator it(bundle, QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot,
                    QDirIterator::Subdirectories);
    while (it.hasNext()) {
        const QFileInfo info(it.next());
        if (info.isSymLink() && !info.canonicalFilePath().startsWith(bundle + '/')) return false;
    }
    return true;
}

bool syncOne(const QString &path)
{
    const int file = ::open(QFile::encodeName(path).constData(), O_RDONLY | O_NOFOLLOW | O_CLOEXEC);
    if (file < 0) return false;
    const bool done = ::fsync(file) == 0;
    ::close(file);
    return done;
}

/// Brings a bundle's files and folders onto the disk, so that no loss of power leaves a new name with empty files.
bool syncTree(const QString &bundle)
{
    QDirIterator it(bundle, QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot | QDir::NoSymLinks,
                    QDirIterator::Subdirectories);
    while (it.hasNext())
        if (!syncOne(it.next())) return false;
    return syncOne(bundle);
}

/// Both bundles change places in one step: there is no moment without an installed program.
bool swapBundles(const QString &fresh, const QString &place)
{
    const QByteArray from = QFile::encodeName(fresh);
    const QByteArray to = QFile::encodeName(place);
#ifdef Q_OS_MACOS
    return ::renamex_np(from.constData(), to.constData(), RENAME_SWAP) == 0;
#else
    return ::renameat2(AT_FDCWD, from.constData(), AT_FDCWD, to.constData(), RENAME_EXCHANGE) == 0;
#endif
}

const char kScratch[] = ".kesmira-update-";

/// Opens a folder and keeps others from clearing it away. Returns -1 if another process has it.
int lockFolder(const QString &path)
{
    const int folder = ::open(QFile::encodeName(path).constData(), O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC);
    if (folder < 0 || ::flock(folder, LOCK_EX | LOCK_NB) == 0) return folder;
    ::close(folder);
    return -1;
}

/// A folder that nobody else may enter, locked and then gone with this object.
class PrivateFolder
{
public:
    explicit PrivateFolder(const QString &parent)
    {
        QByteArray pattern = QFile::encodeName(parent + '/' + kScratch + "XXXXXX");
        if (!::mkdtemp(pattern.data())) return;
        m_path = QFile::decodeName(pattern);
        m_lock = lockFolder(m_path);
    }
    ~PrivateFolder()
    {
        if (!m_path.isEmpty()) QDir(m_path).removeRecursively();
        if (m_lock >= 0) ::close(m_lock);
    }
    PrivateFolder(const PrivateFolder &) = delete;
    PrivateFolder &operator=(const PrivateFolder &) = delete;
    PrivateFolder(PrivateFolder &&other) noexcept
        : m_path(std::exchange(other.m_path, {})), m_lock(std::exchange(other.m_lock, -1))
    {
    }
    QString path() const { return m_path; }

private:
    QString m_path;
    int m_lock = -1;
};

} // namespace

QString installBundleFromArchive(const QString &archive, const QString &bundleName, const QString &program,
                                 const QString &folder)
{
    // The library follows no link in the path that it writes to, and the way to the folder may hold one.
    const QString parent = QFileInfo(folder).canonicalFilePath();
    const QString place = parent + '/' + bundleName;
    if (!QFileInfo(place).isDir() || QFileInfo(place).isSymLink())
        return Install::tr("The installed program isn't where it was.");
    PrivateFolder scratch(parent);
    if (scratch.path().isEmpty())
        return Install::tr(
            "This program is installed where you can't change it. Its update comes from who installed it.");
    const QString unpacked = scratch.path() + "/new";
    if (!QDir().mkdir(unpacked)) return systemError();
    const QString problem = unpack(archive, unpacked);
    if (!problem.isEmpty()) return problem;

    const QString bundle = unpacked + '/' + bundleName;
    const QFileInfo started(bundle + '/' + program);
    // Only a program that is really in the bundle is still there once the folder that it was unpacked to is gone.
    if (QFileInfo(bundle).isSymLink() || !started.isFile() || !started.isExecutable()
        || started.canonicalFilePath() != bundle + '/' + program)
        return Install::tr("The update doesn't hold the program.");
    if (!linksStayIn(bundle)) return Install::tr("The update holds what doesn't belong there, and was refused.");
    if (!syncTree(bundle) || !swapBundles(bundle, place))
        return Install::tr("The new version can't be put in place: %1").arg(systemError());
    syncOne(unpacked);
    syncOne(parent);
    // The program that runs still starts its decoder from the bundle that was the first to go.
    static const PrivateFolder untilTheEnd(std::move(scratch));
    return {};
}

void clearInstallLeftovers(const QString &bundleName, const QString &folder)
{
    const QDir parent(folder);
    const QString place = parent.filePath(bundleName);
    for (const QString &name :
         parent.entryList({kScratch + QStringLiteral("*")}, QDir::Dirs | QDir::Hidden | QDir::NoSymLinks)) {
        const QString left = parent.filePath(name);
        const int lock = lockFolder(left);
        if (lock < 0) continue;
        const QString old = left + "/old";
        // Earlier versions put the installed bundle aside first; one that was ended then left none in its place.
        if (!QFileInfo::exists(place) && QFileInfo(old).isDir()) QDir().rename(old, place);
        if (QFileInfo(place).isDir()) QDir(left).removeRecursively();
        ::close(lock);
    }
}
