#include "soak/Measure.h"

#include "soak/BatchRunner.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QJsonArray>

#include <algorithm>

namespace soak {

namespace {

QByteArray bytesAt(const QString &path)
{
    if (path.isEmpty()) return {};
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

bool writeFile(const QString &path, const QByteArray &bytes)
{
    if (path.isEmpty()) return {};
    QFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size();
}

QStringList words(const QJsonValue &array)
{
    QStringList all;
    for (const QJsonValue &word : array.toArray()) all.append(word.toString());
    return all;
}

/// Path of the first output that is no thumbnail, empty if there is none.
QString mainOutput(const Leaving &leaving)
{
    for (const QString &name : words(leaving.json["results"])) {
        if (name.contains(QLatin1String("_[T"))) continue;
        const QString path = leaving.pathOf(name);
        if (!path.isEmpty()) return path;
    }
    return {};
}

/// Outputs that one of the two has alone or with other bytes.
QStringList differences(const Leaving &told, const Leaving &both)
{
    const QString salvaged = both.pathOf(both.json["salvaged"].toString());
    QStringList found;
    for (auto it = told.outputs.begin(); it != told.outputs.end(); ++it) {
        if (!both.outputs.contains(it.key()) || bytesAt(it.value()) != bytesAt(both.outputs[it.key()]))
            found << it.key();
    }
    for (auto it = both.outputs.begin(); it != both.outputs.end(); ++it)
        if (it.value() != salvaged && !told.outputs.contains(it.key())) found << it.key();
    if (told.json["results"] != both.json["results"] || told.json["status"] != both.json["status"]) found << "results";
    found.sort();
    return found;
}

/// One group on its way.
class Group
{
public:
    Group(const Programs &programs, const std::vector<Sample> &samples, int first, const QString &folder)
        : m_programs(programs), m_samples(samples), m_folder(folder), m_measured(samples.size())
    {
        for (size_t i = 0; i < samples.size(); ++i) {
            // Letters and digits alone, so that an output's name tells its source.
            const QString path = QStringLiteral("%1/f%2.jpg").arg(folder).arg(first + int(i), 5, 10, QLatin1Char('0'));
            if (!writeFile(path, samples[i].bytes)) qFatal("%s can't be written", qPrintable(path));
            m_measured[i].path = path;
            m_files.append(path);
        }
    }

    std::vector<Measured> run();

private:
    QList<Leaving> leavings(const QString &program, const QStringList &options, const QString &name);
    void compareWays(const Leaving &told, const Leaving &both, const Leaving &alone, const QImage &truth,
                     Measured &measured) const;
    QImage decoded(const QString &program, const QStringList &before, const QString &output, const QString &path) const;

    const Programs &m_programs;
    const std::vector<Sample> &m_samples;
    const QString m_folder;
    QStringList m_files;
    std::vector<Measured> m_measured;
};

QList<Leaving> Group::leavings(const QString &program, const QStringList &options, const QString &name)
{
    QList<Leaving> all;
    if (program.isEmpty()) {
        for (int i = 0; i < m_files.size(); ++i) all.append(Leaving());
        return all;
    }
    all = runOver(program, options, m_folder + "/work-" + name, m_files);
    for (int i = 0; i < all.size(); ++i)
        if (!all[i].mishap.isEmpty()) m_measured[size_t(i)].mishaps << name + " " + all[i].mishap;
    return all;
}

/// Whatever a decoder says: the picture that it left is what counts.
QImage Group::decoded(const QString &program, const QStringList &before, const QString &output,
                      const QString &path) const
{
    if (program.isEmpty()) return {};
    const QString file = m_folder + "/" + output;
    QFile::remove(file);
    QStringList arguments = before;
    arguments.replaceInStrings(QStringLiteral("IN"), path);
    arguments.replaceInStrings(QStringLiteral("OUT"), file);
    const bool ended = runDecoder(program, arguments);
    const QImage picture = ended ? pictureAt(file) : QImage();
    QFile::remove(file);
    return picture;
}

void Group::compareWays(const Leaving &told, const Leaving &both, const Leaving &alone, const QImage &truth,
                        Measured &measured) const
{
    const Comparison toldOne = compare(truth, pictureOf(bytesAt(mainOutput(told))));
    const QString salvaged = both.json["salvaged"].toString();
    const QString shown = salvaged.isEmpty() ? mainOutput(both) : both.pathOf(salvaged);
    measured.of(Way::Told) = toldOne;
    measured.of(Way::Both) = compare(truth, pictureOf(bytesAt(shown)));
    measured.of(Way::Alone) = compare(truth, pictureOf(bytesAt(alone.pathOf(QFileInfo(measured.path).fileName()))));
    measured.salvaged = !salvaged.isEmpty();
    const QJsonObject report = both.json["report"].toObject()["salvage"].toObject();
    measured.salvageRan = !report.isEmpty() && !report.contains("passedOver");
    if (measured.salvageRan) measured.milliseconds = qint64(report["milliseconds"].toDouble(-1));
    const QJsonObject &from = measured.salvaged ? report : alone.json;
    measured.steps = words(from["steps"]);
    measured.certainty = from["certainty"].toString();
    measured.aloneCertainty = alone.json["certainty"].toString();
    measured.aloneMilliseconds = qint64(alone.json["milliseconds"].toDouble(-1));
    if (told.mishap.isEmpty() && both.mishap.isEmpty()) measured.differing = differences(told, both);
    const QStringList ffmpeg{"-v", "quiet", "-nostdin", "-y", "-i", "IN", "-frames:v", "1", "OUT"};
    measured.of(Way::Ffmpeg) = compare(truth, decoded(m_programs.ffmpeg, ffmpeg, "out.png", measured.path));
    measured.of(Way::Djpeg) =
        compare(truth, decoded(m_programs.djpeg, {"-bmp", "-outfile", "OUT", "IN"}, "out.bmp", measured.path));
}

std::vector<Measured> Group::run()
{
    const QList<Leaving> told = leavings(m_programs.batch, {"--json"}, "told");
    const QList<Leaving> both = leavings(m_programs.batch, {"--json", "--deep"}, "deep");
    const QList<Leaving> alone = leavings(m_programs.alone, {"--alone"}, "alone");
    for (size_t i = 0; i < m_samples.size(); ++i) {
        const QImage truth = pictureOf(bytesAt(m_samples[i].source));
        const int at = int(i);
        compareWays(told[at], both[at], alone[at], truth, m_measured[i]);
    }
    for (const char *name : {"told", "deep", "alone"}) QDir(m_folder + "/work-" + name).removeRecursively();
    return std::move(m_measured);
}

} // namespace

std::vector<Measured> measure(const Programs &programs, const std::vector<Sample> &samples, int first,
                              const QString &folder)
{
    QDir().mkpath(folder);
    return Group(programs, samples, first, folder).run();
}

} // namespace soak
