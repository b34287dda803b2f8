#include "batch/Words.h"

#include <QStringList>

namespace {

bool steersTerminal(QChar letter)
{
    switch (letter.category()) {
    case QChar::Other_Control:
    case QChar::Other_Format: // direction marks among them
    case QChar::Separator_Line:
    case QChar::Separator_Paragraph: return true;
    default: return false;
    }
}

QString escaped(QChar letter)
{
    if (letter == '\n') return QStringLiteral("\\n");
    if (letter == '\r') return QStringLiteral("\\r");
    if (letter == '\t') return QStringLiteral("\\t");
    return QStringLiteral("\\u%1").arg(letter.unicode(), 4, 16, QChar('0'));
}

QString counted(qint64 count, const char *one, const char *many)
{
    return QStringLiteral("%1 %2").arg(count).arg(QString::fromLatin1(count == 1 ? one : many));
}

} // namespace

QString printable(const QString &text)
{
    QString line;
    line.reserve(text.size());
    for (const QChar letter : text) {
        if (steersTerminal(letter))
            line += escaped(letter);
        else
            line += letter;
    }
    return line;
}

QString mendedText(const RepairReport &report)
{
    QStringList parts;
    if (report.dqtReplaced > 0) parts << counted(report.dqtReplaced, "DQT replaced", "DQTs replaced");
    if (report.dhtReplaced > 0) parts << counted(report.dhtReplaced, "DHT replaced", "DHTs replaced");
    if (report.codesNeutralised > 0) {
        parts << counted(report.codesNeutralised, "byte of the scan neutralised", "bytes of the scan neutralised");
    }
    if (report.bytesSteppedOver > 0)
        parts << counted(report.bytesSteppedOver, "byte stepped over", "bytes stepped over");
    if (!report.missingSegments.isEmpty()) parts << "no " + report.missingSegments.join(", no ");
    for (const OutputReport &output : report.outputs) {
        const bool isOtherWay = output.way != RepairWay::Main && output.way != RepairWay::Nested;
        if (isOtherWay) parts << "by the " + wayWord(output.way);
    }
    if (report.tilesAlone)
        parts << QStringLiteral("only the image tiles, as its boxes fit no known layout");
    else if (!report.outputs.isEmpty() && report.outputs.first().way == RepairWay::Rewrite)
        parts << QStringLiteral("index of the tiles rebuilt");
    parts.removeDuplicates();
    if (!report.decoderWarning.isEmpty()) parts << QStringLiteral("decoder: \"%1\"").arg(report.decoderWarning);
    return parts.join("; ");
}
