// The slow, obvious marker walks: one position after the other over bytes in memory. They share nothing with the
// engine, so that two implementations can be held against each other.
#pragma once

#include <QByteArray>
#include <QString>

#include <array>
#include <vector>

struct WalkNode
{
    quint16 wMarker = 0; ///< in file order, so SOI is 0xFFD8
    quint16 wLength = 0;
    qint64 nOffset = 0;
    std::vector<quint32> nestedStart; ///< both without the zeros behind the last image
    std::vector<qint32> nestedLength; ///< as long as `nestedStart`
    quint16 nApp1Nested = 0;
    quint16 nApp2Nested = 0;
    quint16 nApp13Nested = 0;
    quint16 nSoiNested = 0;
    quint16 wSoiNestedFlag = 0;

    bool operator==(const WalkNode &) const = default;
};

using QuantHead = std::array<quint8, 25>;

/// All that a walk leaves behind, the runs of illegal codes spelled out one by one.
struct WalkResult
{
    std::vector<WalkNode> nodes;
    std::vector<qint64> faults; ///< distances from `nScanOffset`
    quint32 nScanOffset = 0;
    quint16 nGapAfterDqt1 = 0;
    quint16 nGapAfterDqt2 = 0;
    quint16 nGapAfterDqt3 = 0;
    quint32 nDhtCount = 0;
    quint32 nDqt67Count = 0;
    QuantHead aQuantHead1{};
    QuantHead aQuantHead2{};
    QuantHead aQuantHead3{};
    bool bContainerWalk = false;
    bool bTrailingImages = false;
    bool bThumbFound = false;
    bool bSteppedOverBytes = false;
    quint16 nImageWidth = 0;
    quint8 nThirdQuantSelector = 0;
    quint8 nFirstSampling = 0;
    quint32 nNestedImages = 0;

    bool operator==(const WalkResult &) const = default;
};

/// Starts and ends of images met in turn; from it the walk of a whole file chooses its form.
int steppingBoundaryCount(const QByteArray &file);

/// Walk of a whole file.
WalkResult steppingWalk(const QByteArray &file);

struct CopyWalk
{
    bool container = false; ///< the file that the copy was cut from is a stream of images
    WalkResult before;      ///< chain and fields that the walk continues
    int stays = 3; ///< how often a third SOI is looked at again before the walk gives up; no result depends on it
};

/// Walk of a working copy that holds one image.
WalkResult steppingTempWalk(const QByteArray &copy, const CopyWalk &setup = {});
/// The same for a copy cut out of a stream; here `nodes` are those of the raw chain.
WalkResult steppingRawWalk(const QByteArray &copy, const CopyWalk &setup = {true, {}, 3});

/// "" if both are equal, else one line that names the first difference.
QString describeDifference(const WalkResult &actual, const WalkResult &expected);
/// One line for a node: marker, length, offset and what is nested in it.
QString describeNode(const WalkNode &node);
