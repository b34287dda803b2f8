#include "engine/RepairReport.h"

#include <QJsonArray>

#include <algorithm>
#include <array>

namespace {

struct ReasonWords
{
    RepairReason reason;
    const char *word;
    const char *text;
};

constexpr std::array<ReasonWords, 15> kReasons = {{
    {RepairReason::None, "", ""},
    {RepairReason::Unreadable, "unreadable", "The file can't be read, or it isn't a file."},
    {RepairReason::Empty, "empty", "The file is empty."},
    {RepairReason::TooLarge, "too-large", "The file or its picture is larger than can be handled."},
    {RepairReason::OtherFormat, "other-format", "The file is of a format that isn't repaired."},
    {RepairReason::HeaderLost, "header-lost", "The header is lost; a healthy sample from the same camera may help."},
    {RepairReason::DecoderRefused, "decoder-refused", "The picture was rebuilt, but it doesn't decode."},
    {RepairReason::NoPreview, "no-preview", "No usable picture was found inside the file."},
    {RepairReason::TilesUnknown, "tiles-unknown", "The number of image tiles fits no known layout."},
    {RepairReason::BoxesLost, "boxes-lost",
     "The boxes that describe the image are lost; a healthy sample from the same camera may help."},
    {RepairReason::DiskFull, "disk-full", "The disk of the working folder is full or can't be written."},
    {RepairReason::Stopped, "stopped", "The run was stopped before the file was finished."},
    {RepairReason::Healthy, "healthy", "It opens as it is."},
    {RepairReason::NoPictureData, "no-picture-data", "The file holds no picture data."},
    {RepairReason::SampleUnfit, "sample-unfit", "The sample doesn't fit this file."},
}};

const ReasonWords &wordsOf(RepairReason reason)
{
    for (const ReasonWords &words : kReasons) {
        if (words.reason == reason) return words;
    }
    return kReasons[0];
}

QJsonObject toJson(const OutputReport &output)
{
    QJsonObject object{{"name", output.name}, {"path", output.path}, {"way", wayWord(output.way)}};
    if (output.size.isValid()) {
        object.insert("width", output.size.width());
        object.insert("height", output.size.height());
    }
    insertWholeness(object, output.wholeness);
    return object;
}

QJsonObject toJson(const SalvageReport &salvage)
{
    QJsonObject object{{"steps", QJsonArray::fromStringList(salvage.steps)},
                       {"certainty", salvage.certainty},
                       {"milliseconds", salvage.milliseconds}};
    if (!salvage.passedOver.isEmpty()) object.insert("passedOver", salvage.passedOver);
    insertWholeness(object, salvage.wholeness);
    return object;
}

} // namespace

QString reasonWord(RepairReason reason)
{
    return QString::fromLatin1(wordsOf(reason).word);
}

QString reasonText(RepairReason reason)
{
    return QString::fromLatin1(wordsOf(reason).text);
}

QString wayWord(RepairWay way)
{
    switch (way) {
    case RepairWay::Main: return QStringLiteral("main");
    case RepairWay::Nested: return QStringLiteral("nested");
    case RepairWay::SecondWay: return QStringLiteral("second way");
    case RepairWay::Sample: return QStringLiteral("sample");
    case RepairWay::Pointers: return QStringLiteral("pointers");
    case RepairWay::Carve: return QStringLiteral("carve");
    case RepairWay::Rewrite: return QStringLiteral("rewrite");
    }
    return {};
}

void insertWholeness(QJsonObject &object, const Wholeness &wholeness)
{
    if (wholeness.completeness == Completeness::Unjudged) return;
    object.insert("completeness", completenessWord(wholeness.completeness));
    if (wholeness.share >= 0) object.insert("share", wholeness.share);
}

QString wholenessText(const Wholeness &wholeness)
{
    // Neither nothing nor all of it, where there is something, but not all.
    const int percent = std::clamp(int(wholeness.share * 100), 1, 99);
    switch (wholeness.completeness) {
    case Completeness::Unjudged: break;
    case Completeness::Whole: return QStringLiteral("whole");
    case Completeness::Partial: return QStringLiteral("in part, about %1 %").arg(percent);
    case Completeness::Doubtful: return QStringLiteral("doubtful");
    }
    return {};
}

QString completenessWord(Completeness completeness)
{
    switch (completeness) {
    case Completeness::Unjudged: break;
    case Completeness::Whole: return QStringLiteral("whole");
    case Completeness::Partial: return QStringLiteral("partial");
    case Completeness::Doubtful: return QStringLiteral("doubtful");
    }
    return {};
}

QJsonObject toJson(const RepairReport &report)
{
    QJsonArray outputs;
    for (const OutputReport &output : report.outputs) outputs.append(toJson(output));
    QJsonObject object{
        {"dqtReplaced", report.dqtReplaced},
        {"dhtReplaced", report.dhtReplaced},
        {"codesNeutralised", report.codesNeutralised},
        {"bytesSteppedOver", report.bytesSteppedOver},
        {"missingSegments", QJsonArray::fromStringList(report.missingSegments)},
        {"headerBroken", report.headerBroken},
        {"decoderRefused", report.decoderRefused},
        {"decoderWarning", report.decoderWarning},
        {"tilesAlone", report.tilesAlone},
        {"outputs", outputs},
        {"reason", reasonWord(report.reason)},
    };
    if (report.unreadableBytes > 0) object.insert("unreadableBytes", report.unreadableBytes);
    if (report.sourceHealthy) object.insert("healthy", true);
    if (!report.trueFormat.isEmpty()) object.insert("trueFormat", report.trueFormat);
    if (report.reason == RepairReason::NoPictureData) object.insert("zeroShare", report.zeroShare);
    // Where it is switched off, nothing of it is said.
    if (report.salvage.ran || !report.salvage.passedOver.isEmpty()) object.insert("salvage", toJson(report.salvage));
    return object;
}
