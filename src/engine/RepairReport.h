// What the engine did for one file, beside the told results: counters and texts that change no decision.
#pragma once

#include <QImage>
#include <QJsonObject>
#include <QSize>
#include <QString>
#include <QStringList>
#include <QVector>

/// The way by which an output came about.
enum class RepairWay { Main, Nested, SecondWay, Sample, Pointers, Carve, Rewrite };

/// Why a file gave nothing.
enum class RepairReason {
    None,
    Unreadable,
    Empty,
    TooLarge,
    OtherFormat,
    HeaderLost, ///< a sample may help
    DecoderRefused,
    NoPreview,
    TilesUnknown,
    BoxesLost, ///< a sample may help
    DiskFull,
    Stopped,
    Healthy,       ///< the source opens as it is, and each of its MCUs can be read
    NoPictureData, ///< zeros, random bytes or text
    SampleUnfit,   ///< a sample was tried; hardly an MCU can be read by its tables, or nothing decodes
};

/// How much of a picture is there.
enum class Completeness {
    Unjudged, ///< nobody could tell
    Whole,    ///< each MCU was decoded, and the decoder had no complaint about the picture
    Partial,  ///< a part is missing; `share` says how much is there
    Doubtful, ///< it opens, but what it shows may not be the picture
};

constexpr double kUncounted = -1; ///< the share of a picture whose MCUs nobody could count

struct Wholeness
{
    Completeness completeness = Completeness::Unjudged;
    double share = 0; ///< of the picture's MCUs that were really decoded, 0 to 1; 1 where it is whole; or kUncounted
};

struct OutputReport
{
    QString name; ///< as it stands in lstResultNames
    QString path; ///< where the writer put it
    RepairWay way = RepairWay::Main;
    QSize size;  ///< width and height that the judge found; invalid for a HEIC, and where a stop came first
    QImage icon; ///< the judge's, null where there is no size
    Wholeness wholeness{};
};

/// What deep salvage did for a file; see engine/DeepRoad.h.
struct SalvageReport
{
    bool ran = false; ///< it was switched on and wanted for this file
    QString name;     ///< of its output, empty if there is none
    QString path;     ///< where that lies in the working folder
    QSize size;       ///< width and height that the judge found
    QImage icon;      ///< the judge's
    Wholeness wholeness{};
    QStringList steps; ///< what was mended, in words that stay the same in every language
    QString certainty; ///< "exact", "likely" or "guess"; empty if there is no output
    qint64 milliseconds = 0;
    QString passedOver; ///< why it didn't run though it was wanted, for instance "too-large"
};

struct RepairReport
{
    int dqtReplaced = 0; ///< tables of the main image that came out with other bytes
    int dhtReplaced = 0;
    qint64 codesNeutralised = 0; ///< bytes of the entropy data overwritten with 00
    qint64 unreadableBytes = 0;  ///< of the source, which the medium refused and which were read as zeros
    qint64 bytesSteppedOver = 0; ///< positions that the walk of the user's file passed as no usable segment
    QStringList missingSegments; ///< of "DQT", "DHT", "SOF", "SOS": what the header check did not find
    bool headerBroken = false;   ///< the header check of the main image failed
    bool decoderRefused = false; ///< the judge refused at least one rebuilt image
    QString decoderWarning;      ///< the decoder's first words about a rebuilt image
    bool tilesAlone = false; ///< a HEIC was written without its boxes, as these fit no known layout: nothing opens it
    QVector<OutputReport> outputs;
    SalvageReport salvage;
    RepairReason reason = RepairReason::None;
    bool sourceHealthy = false; ///< the source opens as it is, see Healthy, whatever came out beside it
    QString trueFormat;         ///< what the bytes are where the suffix says otherwise, for instance "HEIC"; else ""
    double zeroShare = 0;       ///< of the source's bytes, 0 to 1; told where there is no picture data
};

/// The word for a reason as the batch program prints it, "" for None.
QString reasonWord(RepairReason reason);
/// One line for a person that says what the reason means and whether a sample may help; "" for None.
QString reasonText(RepairReason reason);
QString wayWord(RepairWay way);
/// "whole", "partial" or "doubtful"; "" for Unjudged.
QString completenessWord(Completeness completeness);
/// Adds `completeness` and `share` to an output's object; nothing for Unjudged.
void insertWholeness(QJsonObject &object, const Wholeness &wholeness);
/// "whole", "in part, about 45 %" or "doubtful"; "" for Unjudged.
QString wholenessText(const Wholeness &wholeness);
QJsonObject toJson(const RepairReport &report);
