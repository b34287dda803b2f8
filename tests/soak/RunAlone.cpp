#include "engine/DeepRoad.h"
#include "salvage/Salvage.h"
#include "salvage/Transfer.h"
#include "soak/Measure.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTextStream>

namespace soak {

void runAlone(const QString &folder, const QStringList &files)
{
    QDir().mkpath(folder);
    QTextStream out(stdout);
    for (const QString &path : files) {
        QFile source(path);
        QByteArray bytes = source.open(QIODevice::ReadOnly) ? source.readAll() : QByteArray();
        salvage::undoTextTransfer(bytes);
        const salvage::KnownTables &known = knownTables();
        salvage::Budget budget;
        const auto found = salvage::salvage(salvage::view(bytes), known, budget);
        QJsonObject line{{"source", path}, {"gave", found.has_value()}, {"milliseconds", budget.elapsed()}};
        if (found) {
            QJsonArray steps;
            for (const salvage::Step step : found->steps) steps.append(QString::fromLatin1(wordOf(step)));
            line.insert("steps", steps);
            line.insert("certainty", QString::fromLatin1(wordOf(found->certainty)));
            QFile output(folder + "/" + QFileInfo(path).fileName());
            if (output.open(QIODevice::WriteOnly)) output.write(found->file);
        }
        out << QString::fromUtf8(QJsonDocument(line).toJson(QJsonDocument::Compact)) << '\n';
        out.flush();
    }
}

} // namespace soak
