// Repairs single hits in entropy data: tries what a byte or a bit may have been, and keeps what reads on and fits.
#pragma once

#include "salvage/entropy/McuReader.h"
#include "salvage/picture/Mending.h"

#include <array>
#include <memory>
#include <optional>
#include <vector>

namespace salvage {

/// The outer samples of one MCU, without the level shift: of luminance, and top and bottom of the others too.
struct McuEdge
{
    std::array<float, 96> top{};
    std::array<float, 96> bottom{};
    std::array<float, 32> left{};
    std::array<float, 32> right{};
};

/// Goes through the data of a baseline scan MCU by MCU. Where an illegal code stands, the data can't be read on, or MCUs stop
/// fitting those above them, it tries the changes of a hit in front of that place: the stuffed 0 that was lost, another byte
/// in the place of a code, one bit turned, a 0D that was lost in front of a 0A. The change by which the MCUs behind it are
/// read and fit best is kept if they fit as well as others do.
class ScanRepair
{
public:
    /// `header` is right in every field, quantization included, and outlives the object.
    ScanRepair(const Header &header, Budget &budget);

    struct Outcome
    {
        QByteArray data; ///< with the changes
        int changes = 0;
        quint32 read = 0;      ///< MCUs that were read
        bool complete = false; ///< every MCU was read and the data were used up
    };
    /// Repairs the data of `count` MCUs from `first` on, which begin a scan or a restart interval. Codes that can't stand
    /// must still be in them. Puts what is read into work().
    Outcome run(ByteView data, quint32 first, quint32 count);

    /// The MCUs that were read so far.
    Patchwork &work() { return m_work; }
    /// Tells of an MCU that somebody else has put into work().
    void noteMcu(quint32 index);

private:
    /// What may have happened to the data: `put` stood in the place of the `removed` bytes at `at`.
    struct Change
    {
        size_t at = 0;
        int removed = 0;
        QByteArray put;
        double weight = 1; ///< of its value: less for what happens more often
    };
    struct Rated
    {
        double value = 1e18; ///< sum of unfit() over the MCUs that were looked at
        double mean = 1e18;  ///< of those that were read
        quint32 read = 0;    ///< number in the stretch behind the last of them
        std::optional<Change> change;
    };
    /// The MCUs by which changes are compared, as numbers in the stretch.
    struct Window
    {
        quint32 begin = 0;
        quint32 end = 0;
    };

    bool outOfTime() const;
    double usual() const;
    double unfit(const McuEdge &edge, quint32 index, const McuEdge *above, const McuEdge *before) const;
    /// nullptr where nothing was read.
    const McuEdge *edgeAt(quint32 index) const;
    bool leans() const;
    void accept(const qint16 *mcu, const McuReader::Place &place);
    void forgetFrom(quint32 number);
    bool mend(bool hard);
    void rate(const Change &change, Window window, Rated &best);
    void rateAll(const std::vector<Change> &changes, Window window, Rated &best);
    bool isGood(const Rated &best, Window window) const;
    void learnUsual(ByteView data);
    std::vector<Change> changesAtCode(size_t code) const;
    std::vector<Change> changesOfTwoBytes(size_t code) const;
    std::vector<Change> changesBetween(size_t from, size_t to) const;
    std::optional<size_t> codeBetween(size_t from, size_t to) const;
    void apply(const Change &change);

    const Header &m_header;
    Budget &m_budget;
    int m_begin;
    Patchwork m_work;
    McuReader m_reader;
    mutable std::vector<std::unique_ptr<McuEdge>> m_edges; // by MCU of the picture; those that were asked for
    double m_usual = 0;                                    // the middle of unfit() over the whole scan

    // Of the stretch in hand
    QByteArray m_data;
    quint32 m_first = 0;
    quint32 m_count = 0;
    std::vector<McuReader::Place> m_places; // where each MCU begins
    std::vector<float> m_unfit;             // of each
    quint32 m_quietUntil = 0;               // leaning in front of this MCU was looked into already
    int m_changes = 0;
    std::vector<qint16> m_scratch; // coefficients of one MCU
};

/// Outer samples of an MCU of the shape of `picture`.
McuEdge edgeOf(const qint16 *mcu, const Coefficients &picture, const Header &header);
/// How little an MCU goes with the one above it and the one before it, in levels; either may be null. At most 60.
double unfitOf(const McuEdge &edge, const McuEdge *above, const McuEdge *before,
               const std::vector<Component> &sampling);
/// unfitOf() of every MCU; zeros behind a stop.
std::vector<float> unfitsOf(const Coefficients &picture, const Header &header, const Budget &budget);
/// The mean of unfitOf() over the MCUs that are there, to which holes add a little more than what fits as usual. Of
/// those in front of a stop alone.
double meanUnfit(const Coefficients &picture, const Header &header, const std::vector<bool> &have,
                 const Budget &budget);

} // namespace salvage
