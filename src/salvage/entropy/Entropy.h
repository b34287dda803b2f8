// The baseline decoder and encoder of entropy data (ISO/IEC 10918-1, annex F), by which a salvage decides what is right.
#pragma once

#include "salvage/Budget.h"
#include "salvage/Types.h"

#include <vector>

namespace salvage {

/// The coefficients of one picture, MCU by MCU, the blocks of an MCU in the order of the scan, 64 zig-zag values each; or
/// of a stream of MCUs that has no shape yet.
struct Coefficients
{
    std::vector<Component> sampling; ///< factors by component; 1 x 1 where there is one alone
    quint32 mcusWide = 0;
    quint32 mcusHigh = 0;
    std::vector<qint16> values;

    Coefficients() = default;
    /// The shape of `header`, all values 0.
    explicit Coefficients(const Header &header);

    int blocksPerMcu() const;
    quint32 mcuCount() const { return mcusWide * mcusHigh; }
    /// Index in an MCU of the component's first block.
    int firstBlock(size_t component) const;
    qint16 *mcu(quint32 index) { return values.data() + size_t(index) * size_t(blocksPerMcu()) * 64; }
    const qint16 *mcu(quint32 index) const { return values.data() + size_t(index) * size_t(blocksPerMcu()) * 64; }
    /// A block by its place among those of its component, in the frame padded to whole MCUs.
    qint16 *block(size_t component, quint32 column, quint32 row);
    const qint16 *block(size_t component, quint32 column, quint32 row) const;
};

/// One run of the decoder over the data of one interleaved scan.
struct Fit
{
    enum class Error { None, NoCode, Overflow, DataEnded, BadDc, NoRestart };

    quint32 done = 0;  ///< MCUs in front of the first error
    quint32 total = 0; ///< MCUs that were to be read
    Error error = Error::None;
    size_t end = 0;           ///< offset behind the last byte that was used
    quint32 restarts = 0;     ///< restart markers that were passed
    quint32 firstRestart = 0; ///< MCUs in front of the first of them
    bool inTurn = true;       ///< their numbers run 0, 1 .. 7, 0
    quint32 symbols = 0;      ///< that were read
    double share = 0;         ///< the smaller of the shares of MCUs read and data used
    /// Every MCU was read, the markers had their turn and the data were used up to three bytes: tables, sampling, size and interval are right.
    bool perfect = false;

    /// Order of preference.
    bool betterThan(const Fit &other) const { return perfect != other.perfect ? perfect : share > other.share; }
};

struct DecodeWish
{
    quint32 mcus = 0;                      ///< how many to read; 0 for those of the header
    bool followRestarts = false;           ///< take a restart marker wherever it stands, not by the interval
    std::vector<qint16> *values = nullptr; ///< gets the coefficients of the MCUs that were read
};

/// Decodes `data` with the tables and samplings of `header` up to the first error. Counts as one decode of the budget,
/// whose end it doesn't wait for: a stop is answered within some milliseconds, as an error would be.
Fit decode(const Header &header, ByteView data, Budget &budget, const DecodeWish &wish = {});

/// Goes on behind errors, MCU after MCU as the bits fall, for at most `mcus`. `values` gets what was read, with zeros
/// behind an error; `bad` one entry for each MCU, true where an error stood. Returns the MCUs that the data held.
quint32 decodeTolerantly(const Header &header, ByteView data, quint32 mcus, Budget &budget, std::vector<qint16> &values,
                         std::vector<bool> &bad);

/// Entropy data, without markers, of `picture` with the tables of Annex K; DC and AC values are cut to what these can say.
QByteArray encode(const Coefficients &picture);
/// Gives `header` what encode() writes by: the tables of Annex K for luminance and chrominance, no restart interval.
void useStandardTables(Header &header);

/// Codes that can't stand in entropy data lose their FF (FE: as many bits, and the least changed). Restart markers stay
/// where `keepRestarts` is set. `changed` gets how many there were.
QByteArray cleanScan(ByteView data, bool keepRestarts, int &changed, const Budget &budget = Budget());
/// True if there are restart markers and most of them run 0, 1 .. 7, 0: an interval was in use.
bool restartsAreRegular(ByteView data, const Budget &budget = Budget());

} // namespace salvage
