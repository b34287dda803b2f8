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

/// A run of illegal FF codes at equal distances, in the order of the scan. A scan of nothing but FF bytes is one node,
/// and even codes at random distances cost only half a node each.
struct tagScanFault
{
    qint64 nDistance = 0; ///< of the first code: its file offset minus `nScanOffset`
    quint32 nStride = 0;  ///< bytes from one code to the next, 0 while the run holds a single one
    quint32 nCount = 1;   ///< codes in the run
    tagScanFault *pNext = nullptr;
};
