#include "tables/TableText.h"

#include <algorithm>
#include <charconv>

using std::string_view;

namespace {

constexpr int kMarkerBytes = 2;
constexpr int kHuffmanHead = 17;         // Tc/Th and 16 counts
constexpr int kLongestHuffman = 420 - 2; // length field of what the result buffer of a look-up holds
constexpr int kMostSymbols = 256;
constexpr int kPairLength = 132;
constexpr int kTripleLength = 197;
constexpr int kOddPairLength = 67; // some pairs are known with the length of a single table, and go out as they are

constexpr string_view kBlanks = " \t\r";

struct FamilyName
{
    string_view name;
    QuantizationFamily family;
};

constexpr FamilyName kFamilyNames[] = {
    {"standard", QuantizationFamily::Standard},
    {"standard_02", QuantizationFamily::Standard02},
    {"standard_3_4_5", QuantizationFamily::Standard345},
    {"standard_6_8_9_10_12", QuantizationFamily::Standard689},
    {"standard_15_21_50_others", QuantizationFamily::StandardOthers},
};

string_view trimmed(string_view text)
{
    const size_t first = text.find_first_not_of(kBlanks);
    if (first == string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

string_view takeField(string_view &line)
{
    const auto isBlank = [](char c) { return kBlanks.find(c) != string_view::npos; };
    // Nearly all of a text is hexadecimal digits, so most characters are settled by one comparison.
    const auto end = std::find_if(line.begin(), line.end(), [&](char c) { return c <= ' ' && isBlank(c); });
    const size_t length = size_t(end - line.begin());
    const string_view field = line.substr(0, length);
    line = trimmed(line.substr(length));
    return field;
}

// A field as a message may show it: whatever stands there, the message stays one short line.
QString quoted(string_view field)
{
    constexpr size_t kShown = 24;
    QString text = QString::fromLatin1(field.data(), int(std::min(field.size(), kShown)));
    for (QChar &c : text) {
        if (!c.isPrint()) c = QLatin1Char('?');
    }
    return QLatin1Char('"') + text + (field.size() > kShown ? QLatin1String("...\"") : QLatin1String("\""));
}

bool readNumber(string_view field, int &number)
{
    const char *const end = field.data() + field.size();
    const auto [stop, failure] = std::from_chars(field.data(), end, number);
    return failure == std::errc() && stop == end && number >= 0;
}

constexpr quint8 kNoDigit = 0xFF;

constexpr std::array<quint8, 256> kHexDigits = [] {
    std::array<quint8, 256> values{};
    values.fill(kNoDigit);
    for (quint8 digit = 0; digit < 10; ++digit) values[size_t('0' + digit)] = digit;
    for (quint8 digit = 10; digit < 16; ++digit) {
        values[size_t('a' + digit - 10)] = digit;
        values[size_t('A' + digit - 10)] = digit;
    }
    return values;
}();

bool readHex(string_view field, QByteArray &bytes)
{
    if (field.size() % 2 != 0) return false;
    bytes.resize(int(field.size() / 2));
    char *to = bytes.data();
    int all = 0;
    for (size_t i = 0; i < field.size(); i += 2) {
        const int high = kHexDigits[quint8(field[i])];
        const int low = kHexDigits[quint8(field[i + 1])];
        all |= high | low;
        *to++ = char(high << 4 | low);
    }
    return all < 16;
}

quint8 byteAt(const QByteArray &bytes, int index)
{
    return quint8(bytes.at(index));
}

int wordAt(const QByteArray &bytes, int index)
{
    return byteAt(bytes, index) << 8 | byteAt(bytes, index + 1);
}

QString hexByte(int value)
{
    return QStringLiteral("%1").arg(value, 2, 16, QLatin1Char('0'));
}

// Reads the last field of a record. `expectedBytes` 0 leaves the size open.
QString readSegment(string_view rest, quint8 markerCode, int expectedBytes, QByteArray &segment)
{
    const string_view field = takeField(rest);
    if (field.empty()) return QStringLiteral("the segment is missing");
    if (!rest.empty()) return QStringLiteral("%1 behind the segment").arg(quoted(rest));
    // Before anything is stored, so that a line of any length costs nothing.
    if (field.size() > size_t(2 * (kMarkerBytes + kLongestHuffman))) return QStringLiteral("the segment is too long");
    if (!readHex(field, segment)) return QStringLiteral("the segment is not in hexadecimal bytes");
    if (segment.size() < 2 * kMarkerBytes) return QStringLiteral("the segment is too short");
    if (byteAt(segment, 0) != 0xFF || byteAt(segment, 1) != markerCode)
        return QStringLiteral("the segment begins with %1 instead of ff%2")
            .arg(QString::fromLatin1(segment.left(2).toHex()), hexByte(markerCode));
    if (expectedBytes > 0 && segment.size() != expectedBytes)
        return QStringLiteral("the segment has %1 bytes instead of %2").arg(segment.size()).arg(expectedBytes);
    return {};
}

QString checkHuffmanTables(const QByteArray &segment)
{
    int at = 2 * kMarkerBytes;
    do {
        if (segment.size() - at < kHuffmanHead) return QStringLiteral("a table's counts run past the segment's end");
        const int tableClass = byteAt(segment, at) >> 4;
        const int destination = byteAt(segment, at) & 0x0F;
        if (tableClass > 1 || destination > 3)
            return QStringLiteral("%1 is no Tc/Th byte").arg(hexByte(byteAt(segment, at)));
        int symbols = 0;
        for (int i = 1; i < kHuffmanHead; ++i) symbols += byteAt(segment, at + i);
        if (symbols > kMostSymbols) return QStringLiteral("a table counts %1 symbols").arg(symbols);
        at += kHuffmanHead + symbols;
        if (at > segment.size()) return QStringLiteral("a table's symbols run past the segment's end");
    } while (at < segment.size());
    return {};
}

QString checkQuantizationTables(const QByteArray &segment, QuantizationKind kind)
{
    const int length = wordAt(segment, kMarkerBytes);
    const bool pair = kind == QuantizationKind::Pair;
    if (length != (pair ? kPairLength : kTripleLength) && !(pair && length == kOddPairLength))
        return QStringLiteral("the segment's length field is %1").arg(length);
    for (int table = 0; table < (pair ? 2 : 3); ++table) {
        const int tq = byteAt(segment, QuantizationRow::kFirstValue - 1 + table * QuantizationRow::kTableBytes);
        if (tq != table) return QStringLiteral("the Tq byte of table %1 is %2").arg(table).arg(hexByte(tq));
    }
    return {};
}

} // namespace

namespace tabletext {

string_view takeLine(string_view &text)
{
    const size_t end = std::min(text.find('\n'), text.size());
    const string_view line = trimmed(text.substr(0, end));
    text.remove_prefix(std::min(end + 1, text.size()));
    return line;
}

QString readHuffmanRecord(string_view line, HuffmanRow &row)
{
    const string_view length = takeField(line);
    if (!readNumber(length, row.length)) return QStringLiteral("%1 is no length").arg(quoted(length));
    const QString wrong = readSegment(line, 0xC4, 0, row.segment);
    if (!wrong.isEmpty()) return wrong;
    const int lengthField = wordAt(row.segment, kMarkerBytes);
    if (lengthField != row.length)
        return QStringLiteral("the length is %1, the segment's length field %2").arg(row.length).arg(lengthField);
    if (lengthField != row.segment.size() - kMarkerBytes)
        return QStringLiteral("the length field is %1, the segment has %2 bytes behind its marker")
            .arg(lengthField)
            .arg(row.segment.size() - kMarkerBytes);
    return checkHuffmanTables(row.segment);
}

QString readQuantizationRecord(string_view line, QuantizationFamily &family, QuantizationKind &kind,
                               QuantizationRow &row)
{
    const string_view name = takeField(line);
    const FamilyName *known = std::find_if(std::begin(kFamilyNames), std::end(kFamilyNames),
                                           [name](const FamilyName &each) { return each.name == name; });
    if (known == std::end(kFamilyNames)) return QStringLiteral("%1 is no family").arg(quoted(name));
    family = known->family;

    const string_view kindName = takeField(line);
    if (kindName != "pair" && kindName != "triple") return QStringLiteral("%1 is no kind").arg(quoted(kindName));
    kind = kindName == "pair" ? QuantizationKind::Pair : QuantizationKind::Triple;

    const string_view position = takeField(line);
    if (!readNumber(position, row.position)) return QStringLiteral("%1 is no position").arg(quoted(position));

    const bool pair = kind == QuantizationKind::Pair;
    QString wrong =
        readSegment(line, 0xDB, pair ? QuantizationRow::kPairBytes : QuantizationRow::kTripleBytes, row.segment);
    if (wrong.isEmpty()) wrong = checkQuantizationTables(row.segment, kind);
    if (!wrong.isEmpty()) return wrong;
    for (int table = 0; table < row.tableCount(); ++table)
        row.heads[size_t(table)] = packQuantizationHead(row.values(table));
    return {};
}

} // namespace tabletext
