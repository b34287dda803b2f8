// Chance that comes out the same on every platform: the standard leaves the distributions open, the engine it doesn't.
#pragma once

#include <QByteArray>

#include <random>
#include <string_view>

namespace soak {

class Random
{
public:
    /// Equal seeds, names and numbers give equal chance; a change of one of them gives another.
    Random(quint64 seed, std::string_view name, quint64 number)
    {
        quint64 hash = 0xCBF29CE484222325U; // FNV-1a
        for (const char c : name) hash = (hash ^ quint8(c)) * 0x100000001B3U;
        std::seed_seq sequence{quint32(seed), quint32(seed >> 32), quint32(hash), quint32(hash >> 32), quint32(number)};
        m_engine.seed(sequence);
    }

    /// 0 to n - 1; 0 for n below 2. The lean towards small numbers is under one in 2^32.
    int below(int n) { return n < 2 ? 0 : int(m_engine() % quint64(n)); }
    /// Both ends included; `low` where `high` is less.
    int between(int low, int high) { return low + below(high - low + 1); }
    /// `low` to `high`, small ones as often as large ones by their order of magnitude.
    int betweenBySize(int low, int high)
    {
        int top = low;
        const int doublings = below(32);
        for (int i = 0; i < doublings && top < high; ++i) top = top * 2 + 1;
        return between(low, std::min(top, high));
    }
    char byte() { return char(below(256)); }
    /// A byte that isn't `old`.
    char otherByte(char old) { return char(quint8(old) + 1 + below(255)); }
    QByteArray bytes(int count)
    {
        QByteArray junk(count, Qt::Uninitialized);
        for (char &c : junk) c = byte();
        return junk;
    }
    template<typename List>
    const typename List::value_type &pick(const List &list)
    {
        return list[size_t(below(int(list.size())))];
    }

private:
    std::mt19937_64 m_engine;
};

} // namespace soak
