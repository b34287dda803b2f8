// Words for test messages: what two walks disagree on.

#include "support/SteppingWalk.h"

#include <QStringList>

#include <algorithm>

namespace {

template<typename T>
void compare(QStringList &lines, const char *name, const T &actual, const T &expected)
{
    if (actual != expected) lines << QString("%1 is %2, not %3").arg(name).arg(actual).arg(expected);
}

QString hex(const QuantHead &head)
{
    return QByteArray(reinterpret_cast<const char *>(head.data()), int(head.size())).toHex(' ');
}

void compareNodes(QStringList &lines, const WalkResult &actual, const WalkResult &expected)
{
    const size_t count = std::max(actual.nodes.size(), expected.nodes.size());
    for (size_t i = 0; i < count && lines.isEmpty(); ++i) {
        const bool both = i < actual.nodes.size() && i < expected.nodes.size();
        if (both && actual.nodes[i] == expected.nodes[i]) continue;
        const auto text = [i](const WalkResult &r) {
            return i < r.nodes.size() ? describeNode(r.nodes[i]) : QString("missing");
        };
        lines << QString("node %1 is [%2], not [%3]").arg(i).arg(text(actual), text(expected));
    }
}

void compareFaults(QStringList &lines, const WalkResult &actual, const WalkResult &expected)
{
    const size_t count = std::min(actual.faults.size(), expected.faults.size());
    for (size_t i = 0; i < count; ++i) {
        if (actual.faults[i] == expected.faults[i]) continue;
        lines << QString("fault %1 is %2, not %3").arg(i).arg(actual.faults[i]).arg(expected.faults[i]);
        return;
    }
    compare(lines, "the number of faults", actual.faults.size(), expected.faults.size());
}

} // namespace

QString describeNode(const WalkNode &node)
{
    QString text =
        QString("%1 length %2 at %3").arg(node.wMarker, 4, 16, QChar('0')).arg(node.wLength).arg(node.nOffset);
    text += QString(", counts %1 %2 %3 %4 flag %5")
                .arg(node.nApp1Nested)
                .arg(node.nApp2Nested)
                .arg(node.nApp13Nested)
                .arg(node.nSoiNested)
                .arg(node.wSoiNestedFlag);
    for (size_t i = 0; i < node.nestedStart.size() && i < 8; ++i)
        text += QString(", nested %1+%2").arg(node.nestedStart[i]).arg(node.nestedLength[i]);
    if (node.nestedStart.size() > 8) text += QString(" and more, %1 in all").arg(node.nestedStart.size());
    return text;
}

QString describeDifference(const WalkResult &actual, const WalkResult &expected)
{
    QStringList lines;
    compare(lines, "bContainerWalk", actual.bContainerWalk, expected.bContainerWalk);
    compareNodes(lines, actual, expected);
    compareFaults(lines, actual, expected);
    compare(lines, "nScanOffset", actual.nScanOffset, expected.nScanOffset);
    compare(lines, "nGapAfterDqt1", actual.nGapAfterDqt1, expected.nGapAfterDqt1);
    compare(lines, "nGapAfterDqt2", actual.nGapAfterDqt2, expected.nGapAfterDqt2);
    compare(lines, "nGapAfterDqt3", actual.nGapAfterDqt3, expected.nGapAfterDqt3);
    compare(lines, "nDhtCount", actual.nDhtCount, expected.nDhtCount);
    compare(lines, "nDqt67Count", actual.nDqt67Count, expected.nDqt67Count);
    compare(lines, "aQuantHead1", hex(actual.aQuantHead1), hex(expected.aQuantHead1));
    compare(lines, "aQuantHead2", hex(actual.aQuantHead2), hex(expected.aQuantHead2));
    compare(lines, "aQuantHead3", hex(actual.aQuantHead3), hex(expected.aQuantHead3));
    compare(lines, "bTrailingImages", actual.bTrailingImages, expected.bTrailingImages);
    compare(lines, "bThumbFound", actual.bThumbFound, expected.bThumbFound);
    compare(lines, "bSteppedOverBytes", actual.bSteppedOverBytes, expected.bSteppedOverBytes);
    compare(lines, "nImageWidth", actual.nImageWidth, expected.nImageWidth);
    compare(lines, "nThirdQuantSelector", actual.nThirdQuantSelector, expected.nThirdQuantSelector);
    compare(lines, "nFirstSampling", actual.nFirstSampling, expected.nFirstSampling);
    compare(lines, "nNestedImages", actual.nNestedImages, expected.nNestedImages);
    return lines.isEmpty() ? QString() : lines.first();
}
