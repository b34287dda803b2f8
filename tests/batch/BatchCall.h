// Runs the batch program in this process, its streams replaced by text.
#pragma once

#include "batch/Batch.h"

#include <QIODevice>
#include <QJsonDocument>
#include <QJsonObject>
#include <QStringList>
#include <QVector>

#include <functional>

struct BatchCall
{
    int status = -1;
    QString out;
    QString err;

    explicit BatchCall(const QStringList &arguments)
    {
        QTextStream outStream(&out);
        QTextStream errStream(&err);
        status = runBatch(QStringList("kesmira-batch") + arguments, outStream, errStream);
    }

    QStringList outLines() const { return out.split('\n', Qt::SkipEmptyParts); }
    QStringList errLines() const { return err.split('\n', Qt::SkipEmptyParts); }
    /// The objects of --json; an empty one where a line is none.
    QVector<QJsonObject> objects() const
    {
        QVector<QJsonObject> found;
        for (const QString &line : outLines()) found << QJsonDocument::fromJson(line.toUtf8()).object();
        return found;
    }
    /// The field of each object, as text.
    QStringList each(const QString &field) const
    {
        QStringList values;
        for (const QJsonObject &object : objects()) values << object[field].toString();
        return values;
    }
};

/// Takes what is written until a number of bytes has come, and then no more; tells of each write first.
class FailDevice : public QIODevice
{
public:
    explicit FailDevice(qint64 room, std::function<void()> onWrite = {}) : m_room(room), m_onWrite(std::move(onWrite))
    {
        open(QIODevice::WriteOnly | QIODevice::Unbuffered);
    }
    QByteArray taken() const { return m_taken; }
    int writes() const { return m_writes; }

protected:
    qint64 readData(char *, qint64) override { return -1; }
    qint64 writeData(const char *data, qint64 count) override
    {
        ++m_writes;
        if (m_onWrite) m_onWrite();
        if (m_taken.size() + count > m_room) return -1;
        m_taken.append(data, int(count));
        return count;
    }

private:
    qint64 m_room;
    std::function<void()> m_onWrite;
    QByteArray m_taken;
    int m_writes = 0;
};
