// The analysis of one file: dispatch by suffix, marker walks, segment list, and the two ways for a file without a header.
#pragma once

#include "engine/FileWindow.h"
#include "engine/RepairReport.h"
#include "engine/SegmentList.h"

#include <QObject>
#include <QString>

class StreamImages;
class TrailingImages;

/// One is built for each file and leaves all that it finds in `pApp`; no result is carried from one call to the next.
/// All operations run on the thread of the repair and poll the stop flag.
class jpg_repair : public QObject
{
    Q_OBJECT

public:
    jpg_repair();
    ~jpg_repair() override;

    /// Analyses and rebuilds the file named by `strCurrentPath` (by `strTempCopyPath` while `bWorkOnTempCopy` is set);
    /// the argument is not read. Leaves the outputs' names in `lstResultNames`, `nInvalidCount` raised by 1 if the header
    /// check failed, and both chains and all paths of the file empty.
    void repairing(const QString &path);
    /// Lets go of all that a file has left in `pApp` whose repair was broken off: chains, open files, paths and stages.
    void abandon();

    /// The second way: finds the point where usable segments begin in the file at `path` and puts a fresh SOI in front.
    /// True if the output loads; its name, with a leading "/", then stands in `lstResultNames`.
    bool reRepairing(const QString &path);

    /// Grafts the header of a healthy sample on the entropy data of a damaged file. True if the output loads; its name
    /// then stands in `lstResultNames`.
    bool ScanRefFile(const QString &samplePath, const QString &damagedPath);

    /// True if the HEIC at `path` can be rebuilt without a sample: its tiles make a known layout and the boxes that
    /// describe the picture follow each other in their usual place. Sets the layout flag, `bHeicHeaderIntact` and
    /// `bHeicOddTileCount`, and leaves `pHeicSource` open, also where it says false; the destructor closes what is left.
    bool Heic(const QString &path);
    /// The number of tiles in the HEIC at `path`, 0 if there are none or it can't be read. Sets the layout flag, and
    /// leaves no file open.
    unsigned int CheckingImageType(const QString &path);
    /// Opens `pHeicSource` on `path` and takes the lengths of its tiles; no flag is touched.
    void scanAgainForiLocation(const QString &path);
    /// Writes all of the new HEIC but its tiles to `pHeicOutput`, with the boxes of the file that Heic() has left open.
    /// Returns the result's name. Nothing is written where the boxes fit no layout.
    QString writeFileWithoutRef(const QString &path);
    /// The same with the boxes of a healthy sample, for the tiles of `damagedPath` and the layout flag that stands.
    QString writeFileWithRef(const QString &damagedPath, const QString &samplePath);
    /// Appends the tiles, closes both files and appends the name to `lstResultNames`, unless the result has no file or
    /// not all of its bytes found room.
    void WriteFileData(const QString &name);

    /// Size of the file in bytes.
    quint64 GetFileSize(FileWindow *file);
    /// Fills `buffer` with `size` bytes from `offset`, zeros past the end. Always true.
    bool ReadDataFromCurrentOffset(FileWindow *file, qint64 offset, quint8 *buffer, quint32 size);

    /// Frees the main chain and the fault chain, closes `pCurrentFile` and resets the table fields of `pApp`.
    void EmptyMemoryAllocation();
    /// Frees the chain of the container stream's image.
    void EmptyMemoryAllocationRaw();

    /// Walks a whole file from `start` and fills the main chain and the fault chain. `path` is not used.
    void TraverseExistingJpgFile(const QString &path, FileWindow *file, qint64 start);
    /// Walks a working copy that holds a single image, into the main chain.
    void TraverseTempThumbFile(const QString &path, FileWindow *file, qint64 start);
    /// Walks a working copy cut out of a container stream, into the raw chain.
    void TraverseTempThumbFileRaw(const QString &path, FileWindow *file, qint64 start);

    /// Makes a node from the 71 bytes of a segment's head at file offset `offset` and links it at the tail. A chain that
    /// has a head takes no node while `bRepairRunning` is clear. `file` is not used: further reads go to `pCurrentFile`.
    void AddList(tagMainList **head, tagMainList **tail, const quint8 *segmentHead, FileWindow *file, qint64 offset);
    /// The same for the raw chain, whatever `bRepairRunning` says; takes `nFileSize` from `nWalkFileSize` while
    /// `bUseOuterFileSize` is set.
    void AddListRaw(tagMainListRaw **head, tagMainListRaw **tail, const quint8 *segmentHead, FileWindow *file,
                    qint64 offset);

    /// Scanners of camera raw. Each copies the pictures that the file at `path` stores into the working folder, found by
    /// the container's own pointers or else by carving, and leaves their names in `lstResultNames`; none where nothing
    /// was found. The file is opened anew, whatever `pCurrentFile` is.
    void ScanCR2(const QString &path);
    void ScanNRW(const QString &path);
    void ScanARW(const QString &path);
    void ScanNEF(const QString &path);
    void ScanSR2(const QString &path);
    void ScanSRF(const QString &path);
    void ScanTIFF(const QString &path);
    void ScanCRW(const QString &path);
    void ScanPEF(const QString &path);
    void ScanORF(const QString &path);
    void ScanRAF(const QString &path);
    void ScanRW2(const QString &path);
    void ScanDNG(const QString &path);
    void ScanERF(const QString &path);
    void ScanMRW(const QString &path);
    /// The same for CR3. Sets `strCr3FullName`, `strCr3PreviewName` and `strCr3ThumbName` for what it writes and lists
    /// all that are set, an earlier file's too.
    void ScanCR3Size(const QString &path);

    static constexpr int kHeadBytes = 71;

public slots:
    /// Hands a message of the writer on to whoever listens.
    void jpgSlot(const QString &message);

signals:
    void JpgSlotCall(const QString &message);

private:
    friend class PlainWalk;

    void repairUserFile();
    void repairWorkingCopy();
    void analyse(bool workingCopy);
    bool scanRaw(bool workingCopy);
    void closeCurrentFile();
    void cleanUp();

    void beginWalk();
    void walkContainer(FileWindow &file, quint64 start);
    template<typename Node>
    void append(Node **head, Node **tail, const quint8 *segmentHead, qint64 offset);
    void fillNode(SegmentNode &node, const quint8 *segmentHead, quint64 offset, bool isHead);
    void searchMetadata(SegmentNode &node, quint64 offset, quint64 last, quint16 SegmentNode::*count);
    void searchBehindPicture(SegmentNode &node, quint64 offset);
    void searchStream(SegmentNode &node, quint64 offset);
    void noteImages(int starts, bool closed);
    void noteFrame(quint64 offset, bool isHead);
    void noteQuantHeads(const SegmentNode &node, quint64 offset);

    bool openHeicSource(const QString &path);
    void openHeicOutput(const QString &name);
    void closeHeicFiles();
    unsigned int countTiles(FileWindow &file, size_t kept);

    bool bDhtUsable = false; ///< a DHT of usable length was met
    bool bDqtSeen = false;
    bool bSecondImage = false;  ///< a second SOI was met
    quint32 nCarvePosition = 0; ///< where the carve of a CR3 ended; read by nothing

    quint32 nHeicFileSize = 0;
    quint32 nHeicDataStart = 0;    ///< offset of the first tile's length field
    quint32 aTileLength[256] = {}; ///< bytes of each tile, its length field included
    QString strHeicFileName;
    quint64 nHeicPosition = 0;                ///< where the tile walk ended
    bool bHeicBigEndian = false;              ///< numbers of the file have their high byte first
    RepairWay m_heicWay = RepairWay::Rewrite; // of the result in hand

    size_t m_nodes = 0;                   // on the chain of the walk in hand
    TrailingImages *m_trailing = nullptr; // what the walk in hand shares between its nodes, if anything
    StreamImages *m_stream = nullptr;
};
