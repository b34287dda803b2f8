// The chains that a marker walk leaves behind: one node for each segment found, one for each run of illegal codes.
#pragma once

#include <QtGlobal>

#include <memory>
#include <vector>

/// A table of up to 1,024 values, one for each nested image of a segment. Entries that were never set are 0.
/// The first value stands in the node itself: most segments have none and nearly all others one. The further ones may be
/// shared with other nodes: all nodes behind a picture see the same images from their own place on.
template<typename T>
class NestedTable
{
public:
    static constexpr int kCapacity = 1024;
    using Values = std::vector<T>;

    T operator[](int index) const
    {
        if (index == 0) return m_first;
        if (!m_more || index < 0 || index >= kCapacity) return T(0);
        const size_t at = m_from + size_t(index) - 1;
        return at < m_more->size() ? (*m_more)[at] : T(0);
    }
    void setFirst(T value) { m_first = value; }
    /// Entries 1 and on are those of `values` from `from` on.
    void setFurther(std::shared_ptr<const Values> values, size_t from)
    {
        m_more = std::move(values);
        m_from = from;
    }

private:
    T m_first = 0;
    size_t m_from = 0;
    std::shared_ptr<const Values> m_more;
};

/// What both chains know of a segment. Offsets count from the file's start.
struct SegmentNode
{
    quint16 wMarker = 0; ///< marker word, FF in the high byte
    quint16 wLength = 0; ///< length field; 0 where it runs past the file's end, and on plain SOI and EOI nodes
    qint64 nOffset = 0;  ///< of the length field, that is, of the marker + 2
    NestedTable<quint32> aNestedStart; ///< SOI of each nested image
    NestedTable<qint32> aNestedLength; ///< its bytes, SOI up to and including EOI; 0 where no end was found
    quint16 nApp1Nested = 0;           ///< 2 for each nested image whose end was found, 1 for one left open
    quint16 nApp2Nested = 0;
    quint16 nApp13Nested = 0;
    quint16 nSoiNested = 0;
    quint16 wSoiNestedFlag = 0;               ///< 1 on an SOI node that recorded a nested image
    const quint8 *pSegmentData = emptyData(); ///< 71 zero bytes that nothing writes, so all nodes share them

private:
    static const quint8 *emptyData();
};

/// A segment of the file, or of the image that is being rebuilt.
struct tagMainList : SegmentNode
{
    quint64 pReserved = 0;
    tagMainList *pNext = nullptr;
};

/// A segment of an image inside a container stream; a chain of its own, so that the stream's is not disturbed.
struct tagMainListRaw : SegmentNode
{
    tagMainListRaw *pNext = nullptr;
};

/// Illegal FF codes in the order of the scan: a run at equal distances, and behind it codes at any. A scan of nothing but
/// FF bytes is one node; codes at random distances cost two bytes each.
struct tagScanFault
{
    qint64 nDistance; ///< of the first code: its file offset minus `nScanOffset`
    tagScanFault *pNext = nullptr;

    explicit tagScanFault(qint64 distance) : nDistance(distance), m_last(distance) {}
    /// Takes the code that follows the last one; false if it needs a node of its own.
    bool add(qint64 distance);
    quint64 count() const { return m_run + m_gaps.size(); }
    /// Calls `visit` with the distance of each code, in order.
    template<typename Visit>
    void forEach(Visit visit) const
    {
        qint64 distance = nDistance;
        visit(distance);
        for (quint64 i = 1; i < m_run; ++i) visit(distance += m_stride);
        for (const quint16 gap : m_gaps) visit(distance += gap);
    }

private:
    qint64 m_last;
    quint64 m_run = 1;
    qint64 m_stride = 0; // from one code of the run to the next
    std::vector<quint16> m_gaps;
};
