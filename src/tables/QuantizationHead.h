// The first values of a quantization table, by which the library is searched, in a form that compares fast.
#pragma once

#include <QtGlobal>

#include <array>
#include <cstring>

/// First values of a quantization table by which a search compares.
constexpr int kQuantizationHead = 25;

/// The first 25 values of one table in machine words, padded with zeros.
using QuantizationHead = std::array<quint64, 4>;

inline QuantizationHead packQuantizationHead(const quint8 *values)
{
    QuantizationHead head{};
    std::memcpy(head.data(), values, kQuantizationHead);
    return head;
}

/// The first `count` of 25 values, 1 to 25, ready to be compared with many heads.
class QuantizationPrefix
{
public:
    QuantizationPrefix(const quint8 *values, int count)
    {
        std::array<quint8, kQuantizationHead> ones{};
        std::memset(ones.data(), 0xFF, size_t(count));
        m_mask = packQuantizationHead(ones.data());
        m_values = packQuantizationHead(values);
    }

    /// True if these values are the first ones of `head`.
    bool opens(const QuantizationHead &head) const
    {
        quint64 different = 0;
        for (size_t i = 0; i < head.size(); ++i) different |= (head[i] ^ m_values[i]) & m_mask[i];
        return different == 0;
    }

private:
    QuantizationHead m_mask;
    QuantizationHead m_values;
};
