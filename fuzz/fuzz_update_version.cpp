// Foreign bytes as the text that the update server gives, and behind its first line feed the version to compare it with.
// What is offered must be what a plain reading of the two says.
#include "support/Files.h"
#include "update/QCheckUpdate.h"
#include "update/UpdateState.h"

#include <QTemporaryDir>

#include <cstdlib>
#include <vector>

namespace {

void demand(bool holds)
{
    if (!holds) std::abort();
}

/// One to four numbers of one to six digits with dots between them, as four; empty for any other text.
std::vector<long> numbersOf(const QString &text)
{
    std::vector<long> numbers;
    int digits = 0;
    for (const QChar letter : text + '.') {
        if (letter == '.') {
            if (digits == 0) return {};
            digits = 0;
        } else {
            if (letter < QChar('0') || letter > QChar('9') || ++digits > 6) return {};
            if (digits == 1) numbers.push_back(0);
            numbers.back() = numbers.back() * 10 + (letter.unicode() - '0');
        }
    }
    if (numbers.size() > 4) return {};
    numbers.resize(4);
    return numbers;
}

QCheckUpdate::Offer offerOf(const std::vector<long> &fetched, const std::vector<long> &current)
{
    if (fetched.empty() || current.empty()) return QCheckUpdate::Offer::None;
    for (size_t i = 0; i < 4; ++i) {
        if (fetched[i] < current[i]) return QCheckUpdate::Offer::None;
        if (fetched[i] > current[i]) return i == 0 ? QCheckUpdate::Offer::Major : QCheckUpdate::Offer::Minor;
    }
    return QCheckUpdate::Offer::None;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    static const QTemporaryDir room;
    const QByteArray text(reinterpret_cast<const char *>(data), int(size));
    write(room.filePath("Kesmira.txt"), text);
    const QString fetched = firstLine(room.filePath("Kesmira.txt"));
    const int end = text.indexOf('\n');
    const QByteArray line = text.left(end < 0 ? text.size() : end);
    demand(fetched.size() <= 4096);
    if (line.size() < 4096) demand(fetched == QString::fromUtf8(line).trimmed());

    const QString current = QString::fromUtf8(end < 0 ? QByteArray("7.0.0.0") : text.mid(end + 1)).trimmed();
    const auto offer = QCheckUpdate::compare(fetched, current);
    demand(offer == offerOf(numbersOf(fetched), numbersOf(current)));
    if (offer != QCheckUpdate::Offer::None)
        demand(QCheckUpdate::compare(current, fetched) == QCheckUpdate::Offer::None);

    fillSoftwareUpdate(current, fetched, current);
    const auto cut = [](const QString &field) { return QString::fromLatin1(field.toLatin1().left(32).split('\0')[0]); };
    demand(fieldText(softwareUpdate.kind) == cut(current) && fieldText(softwareUpdate.title) == cut(current));
    demand(fieldText(softwareUpdate.version) == cut(fetched));
    return 0;
}
