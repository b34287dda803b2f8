#include "salvage/entropy/Entropy.h"

#include "salvage/entropy/McuReader.h"
#include "salvage/structure/Structure.h"

#include <algorithm>
#include <cstring>

namespace salvage {

namespace {

constexpr quint32 kStopEvery = 4096;

/// True at a restart marker, with less than a byte left in front of it.
bool standsAtRestart(BitReader &reader)
{
    return reader.marker() <= 0xFF && isRestart(quint8(reader.marker())) && reader.left() < 8;
}

/// Passes the few bytes by which some encoders miss the next restart marker, number `number`; false where it isn't near.
bool passToRestart(BitReader &reader, ByteView data, quint32 number)
{
    constexpr size_t kNear = 32;
    const size_t from = reader.position();
    for (size_t at = from; at + 1 < std::min(data.size(), from + kNear); ++at) {
        if (data[at] != 0xFF || !isRestart(data[at + 1])) continue;
        if (quint32(data[at + 1] & 7) != number % 8) return false;
        reader.jumpTo(at);
        return standsAtRestart(reader);
    }
    return false;
}

void conclude(Fit &fit, size_t dataSize)
{
    const qptrdiff gap = qptrdiff(dataSize) - qptrdiff(fit.end);
    // A marker out of turn leads strict decoders astray.
    fit.perfect = fit.error == Fit::Error::None && fit.done == fit.total && gap <= 3 && fit.inTurn;
    const double read = double(fit.done) / double(std::max(1u, fit.total));
    const double used = double(fit.end) / double(std::max<size_t>(1, dataSize));
    fit.share = fit.perfect ? 1 : std::min(read, used);
}

} // namespace

Coefficients::Coefficients(const Header &header) : sampling(samplingOf(header))
{
    mcusWide = header.mcusWide();
    mcusHigh = header.mcusHigh();
    values.resize(size_t(mcuCount()) * size_t(blocksPerMcu()) * 64);
}

int Coefficients::blocksPerMcu() const
{
    return firstBlock(sampling.size());
}

int Coefficients::firstBlock(size_t component) const
{
    int blocks = 0;
    for (size_t i = 0; i < component; ++i) blocks += sampling[i].h * sampling[i].v;
    return blocks;
}

const qint16 *Coefficients::block(size_t component, quint32 column, quint32 row) const
{
    const Component &factors = sampling[component];
    const quint32 index = row / factors.v * mcusWide + column / factors.h;
    const int inside = firstBlock(component) + int(row % factors.v) * factors.h + int(column % factors.h);
    return mcu(index) + inside * 64;
}

qint16 *Coefficients::block(size_t component, quint32 column, quint32 row)
{
    return const_cast<qint16 *>(std::as_const(*this).block(component, column, row));
}

Fit decode(const Header &header, ByteView data, Budget &budget, const DecodeWish &wish)
{
    budget.countDecode();
    McuReader mcus(header, data);
    Fit fit;
    fit.total = wish.mcus ? wish.mcus : header.mcuCount();
    const size_t mcuValues = size_t(mcus.blocks) * 64;
    if (wish.values) wish.values->clear();
    quint32 sinceRestart = 0;
    for (; fit.done < fit.total; ++fit.done) {
        const bool due = header.restartInterval && !wish.followRestarts && sinceRestart == header.restartInterval;
        if (due || (wish.followRestarts && fit.done && atEnd(mcus.reader))) {
            if (standsAtRestart(mcus.reader) || (due && passToRestart(mcus.reader, data, fit.restarts))) {
                if (quint32(mcus.reader.marker() & 7) != fit.restarts % 8) fit.inTurn = false;
                if (fit.restarts++ == 0) fit.firstRestart = fit.done;
                mcus.restart();
                sinceRestart = 0;
            } else if (due) {
                fit.error = Fit::Error::NoRestart;
                break;
            }
        }
        if (atEnd(mcus.reader) || (fit.done % kStopEvery == kStopEvery - 1 && budget.stopped())) {
            fit.error = Fit::Error::DataEnded;
            break;
        }
        qint16 *to = nullptr;
        if (wish.values) {
            wish.values->resize((size_t(fit.done) + 1) * mcuValues);
            to = wish.values->data() + size_t(fit.done) * mcuValues;
        }
        fit.error = mcus.readMcu(to);
        if (fit.error != Fit::Error::None) break;
        ++sinceRestart;
    }
    if (wish.values) wish.values->resize(size_t(fit.done) * mcuValues);
    fit.symbols = mcus.symbols();
    fit.end = mcus.reader.position();
    conclude(fit, data.size());
    return fit;
}

quint32 decodeTolerantly(const Header &header, ByteView data, quint32 mcuLimit, Budget &budget,
                         std::vector<qint16> &values, std::vector<bool> &bad)
{
    budget.countDecode();
    McuReader mcus(header, data);
    const size_t mcuValues = size_t(mcus.blocks) * 64;
    values.assign(size_t(mcuLimit) * mcuValues, 0);
    bad.clear();
    quint32 done = 0;
    for (; done < mcuLimit; ++done) {
        if (done % kStopEvery == kStopEvery - 1 && budget.stopped()) break;
        const quint32 interval = header.restartInterval;
        if (interval && done && done % interval == 0
            && (standsAtRestart(mcus.reader) || passToRestart(mcus.reader, data, done / interval - 1)))
            mcus.restart();
        if (atEnd(mcus.reader)) {
            // An interval that ends early leaves its last MCUs empty.
            if (!interval || !standsAtRestart(mcus.reader)) break;
            bad.push_back(true);
            continue;
        }
        bad.push_back(!mcus.readMcuTolerantly(values.data() + size_t(done) * mcuValues));
    }
    values.resize(size_t(done) * mcuValues);
    return done;
}

QByteArray cleanScan(ByteView data, bool keepRestarts, int &changed, const Budget &budget)
{
    QByteArray out = toBytes(data);
    auto *const bytes = reinterpret_cast<quint8 *>(out.data());
    const size_t size = data.size();
    changed = 0;
    StopPoll poll(budget);
    for (size_t at = 0; at < size && !poll.stopped();) {
        const void *found = std::memchr(bytes + at, 0xFF, size - at);
        if (!found) break;
        at = size_t(static_cast<const quint8 *>(found) - bytes);
        while (at < size && bytes[at] == 0xFF && !poll.stopped()) {
            const int next = at + 1 < size ? bytes[at + 1] : 0xD9;
            const bool stands = next == 0 || (keepRestarts && isRestart(quint8(next)));
            if (!stands) {
                bytes[at] = 0xFE;
                ++changed;
            }
            at += stands ? 2 : 1;
        }
    }
    return out;
}

bool restartsAreRegular(ByteView data, const Budget &budget)
{
    int last = -1;
    int count = 0;
    int inTurn = 0;
    StopPoll poll(budget);
    for (size_t at = 0; at + 1 < data.size() && !poll.stopped(); ++at) {
        if (data[at] != 0xFF || !isRestart(data[at + 1])) continue;
        const int number = data[at + 1] & 7;
        if (last >= 0 && number == (last + 1) % 8) ++inTurn;
        if (last < 0 && number == 0) ++inTurn; // the first one is 0
        last = number;
        ++count;
    }
    return count == 1 ? inTurn == 1 : count > 1 && inTurn >= 0.6 * (count - 1);
}

} // namespace salvage
