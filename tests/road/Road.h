// What the tests of one file's road share: a run in a private place, footprints of sources, decoded pictures.
#pragma once

#include "app/KesmiraApp.h"
#include "engine/OneFile.h"
#include "engine/OutputRows.h"
#include "support/RunFolder.h"

#include <QImage>

#include <csignal>
#include <sys/resource.h>

/// A run that has begun, with an empty working folder below a private root.
class Run : public RunFolder
{
public:
    Run();
    ~Run();

    FileOutcome repair(const QString &name, const QByteArray &bytes) const
    {
        return repairOneFile(source(name, bytes));
    }
    /// Names of all files below the root, relative to the working folder where they lie in it; sorted.
    QStringList filesLeft() const;
    /// The bytes of an output, by its place in the working folder; "(no file)" where there is none.
    QByteArray output(const QString &place) const;
};

/// All that a repair must leave of a source as it was.
struct Footprint
{
    QByteArray digest; ///< of the content, or of a link's own target; empty for folders and what else is no file
    qint64 size = 0;
    quint64 inode = 0;
    quint32 mode = 0;
    qint64 modified = 0; ///< nanoseconds
    qint64 changed = 0;  ///< of the inode: rights, names, or times that were put back
    bool operator==(const Footprint &) const = default;
};

/// Of the name itself, no link followed. A file that isn't there has an empty footprint. The content of files above
/// `readUpTo` bytes isn't looked at.
Footprint footprint(const QString &path, qint64 readUpTo = 64 * 1024 * 1024);

/// Files above this size can't be written while one of these lives: what a full disk looks like to a program.
class FileSizeLimit
{
public:
    explicit FileSizeLimit(rlim_t bytes)
    {
        m_handler = std::signal(SIGXFSZ, SIG_IGN);
        ::getrlimit(RLIMIT_FSIZE, &m_before);
        const rlimit limit{bytes, m_before.rlim_max};
        ::setrlimit(RLIMIT_FSIZE, &limit);
    }
    ~FileSizeLimit()
    {
        ::setrlimit(RLIMIT_FSIZE, &m_before);
        std::signal(SIGXFSZ, m_handler);
    }
    FileSizeLimit(const FileSizeLimit &) = delete;
    FileSizeLimit &operator=(const FileSizeLimit &) = delete;

private:
    rlimit m_before{};
    void (*m_handler)(int) = nullptr;
};

/// Decoded by the toolkit; a null image where that fails.
QImage decoded(const QByteArray &jpeg);
QImage decodedFile(const QString &path);
