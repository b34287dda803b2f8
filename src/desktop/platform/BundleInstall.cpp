#include "desktop/platform/BundleInstall.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <archive.h>
#include <archive_entry.h>

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <memory>
#include <sys/stat.h>
#include <unistd.h>

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

/// The old bundle goes to `aside`, the new one into its place; back again if that fails.
bool swapBundles(const QString &fresh, const QString &place, const QString &aside)
{
    const QByteArray from = QFile::encodeName(fresh);
    const QByteArray to = QFile::encodeName(place);
    const QByteArray old = QFile::encodeName(aside);
    if (std::rename(to.constData(), old.constData()) != 0) return false;
    if (std::rename(from.constData(), to.constData()) == 0) return true;
    const int problem = errno;
    std::rename(old.constData(), to.constData());
    errno = problem;
    return false;
}

/// A folder that nobody else may enter, gone with this object.
class PrivateFolder
{
public:
    explicit PrivateFolder(const QString &parent)
    {
        QByteArray pattern = QFile::encodeName(parent + "/.kesmira-update-XXXXXX");
        if (::mkdtemp(pattern.data())) m_path = QFile::decodeName(pattern);
    }
    ~PrivateFolder()
    {
        if (!m_path.isEmpty()) QDir(m_path).removeRecursively();
    }
    PrivateFolder(const PrivateFolder &) = delete;
    PrivateFolder &operator=(const PrivateFolder &) = delete;
    QString path() const { return m_path; }

private:
    QString m_path;
};

} // namespace

QString installBundleFromArchive(const QString &archive, const QString &bundleName, const QString &program,
                                 const QString &folder)
{
    // The library follows no link in the path that it writes to, and the way to the folder may hold one.
    const QString parent = QFileInfo(folder).canonicalFilePath();
    if (!QFileInfo(parent + '/' + bundleName).isDir()) return Install::tr("The installed program isn't where it was.");
    const PrivateFolder scratch(parent);
    if (scratch.path().isEmpty())
        return Install::tr(
            "This program is installed where you can't change it. Its update comes from who installed it.");
    const QString unpacked = scratch.path() + "/new";
    if (!QDir().mkdir(unpacked)) return systemError();
    const QString problem = unpack(archive, unpacked);
    if (!problem.isEmpty()) return problem;

    const QString bundle = unpacked + '/' + bundleName;
    const QFileInfo started(bundle + '/' + program);
    if (!QFileInfo(bundle).isDir() || !started.isFile() || !started.isExecutable() || started.isSymLink())
        return Install::tr("The update doesn't hold the program.");
    if (!swapBundles(bundle, parent + '/' + bundleName, scratch.path() + "/old"))
        return Install::tr("The new version can't be put in place: %1").arg(systemError());
    return {};
}
