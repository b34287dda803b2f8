// One pass over the entropy data of one scan of any kind, unit by unit (ISO/IEC 10918-1, annexes F and G).
#pragma once

#include "salvage/entropy/McuReader.h"

namespace salvage {

/// A unit is an MCU, or a block where the scan has one component of several.
class ScanReader
{
public:
    /// `header` is the one in force: its scan, spectral selection and tables. It must outlive the object, as must `data`,
    /// which are those of this scan alone.
    ScanReader(const Header &header, ByteView data);

    /// False where the header doesn't describe a scan or lacks a table; nothing can be read then.
    bool usable() const { return m_usable; }
    quint32 unitCount() const { return m_unitsWide * m_unitsHigh; }
    quint32 unitsWide() const { return m_unitsWide; }
    quint32 blocksPerUnit() const;
    /// Index of the scan's first component in the frame.
    size_t component() const { return m_parts.front().component; }
    /// The block of a unit where the scan has one component.
    const qint16 *blockAt(quint32 unit, const Coefficients &picture) const
    {
        return picture.block(component(), unit % m_unitsWide, unit / m_unitsWide);
    }

    /// Reads the unit of this number to its place in the picture. False at an error.
    bool readUnit(quint32 unit, Coefficients &picture);
    /// Reads a unit whose place isn't known into `blocks`, which has room for its blocks.
    bool readLoose(qint16 *blocks);
    /// Takes a bit behind an error, to go on as the bits fall.
    void skipError();
    /// Puts the coefficients of a unit, as readLoose() gives them, at its place; `offsets` are added to the levels, block by
    /// block, and may be null.
    void place(quint32 unit, const qint16 *blocks, const int *offsets, Coefficients &picture) const;
    /// True in front of a restart marker.
    bool standsAtRestart();
    /// Passes the marker.
    void restart();
    /// True where nothing is left but the ones by which an encoder fills its last byte.
    bool atEnd();

    BitReader reader;

private:
    struct Part : BlockReader
    {
        size_t component = 0;
        quint32 h = 1; // blocks of a unit
        quint32 v = 1;
    };

    bool prepare();
    bool readBlock(Part &part, qint16 *block);
    bool readDcFirst(Part &part, qint16 *block);
    bool readAcFirst(Part &part, qint16 *block);
    bool readAcRefinement(Part &part, qint16 *block);
    int refine(qint16 *block, int z, int zeros);
    bool startEndOfBand(int run);

    const Header &m_header;
    bool m_usable = false;
    std::vector<Part> m_parts;
    quint32 m_unitsWide = 0;
    quint32 m_unitsHigh = 0;
    quint32 m_endOfBand = 0; // blocks that are still covered by an end-of-band run
};

} // namespace salvage
