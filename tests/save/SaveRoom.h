// What a writer's test needs around it: a fresh application object, a working root and sources of its own, and the bytes
// that a rebuild must give, put together from the source's segments.
#pragma once

#include "support/RunFolder.h"

#include <QByteArray>
#include <QStringList>

#include <cstdio>
#include <functional>
#include <vector>

class TableLibrary;

/// One recorded output, without the chain around it.
struct Record
{
    QString name;
    QString path; ///< below the working folder
    int number = 0;
    int outputsDone = 0;
    int outputIndex = 0;
    int state = 0;
    bool nested = false;

    bool operator==(const Record &) const = default;
};
QString describe(const std::vector<Record> &records);

class SaveRoom
{
public:
    SaveRoom();
    ~SaveRoom();
    SaveRoom(const SaveRoom &) = delete;
    SaveRoom &operator=(const SaveRoom &) = delete;

    QString root() const { return m_folder.root(); }
    QString addSource(const QString &name, const QByteArray &bytes);
    /// Takes a source up and walks it, as far as the engine goes before it builds a writer.
    void walk(const QString &source);
    /// Adds and walks a source, lets the writer do all its work, and forgets the chains.
    void save(const QString &name, const QByteArray &bytes);
    /// What `write` writes into a file that stands at 0.
    QByteArray written(const std::function<void(FILE *)> &write) const;

    /// Files below the working folder, sorted, with their folders in front.
    QStringList outputs() const;
    /// Files below the working root that no output is.
    QStringList leftovers() const;
    QByteArray output(const QString &name) const;
    std::vector<Record> records() const;

private:
    RunFolder m_folder;
};

/// A library without a row: every table stays as it is.
const TableLibrary &noTables();

/// The JPEG from its SOI to its EOI without APPn segments and comments.
QByteArray bareJpeg(const QByteArray &jpeg);
/// `count` bytes of `from` as a copy in blocks of 1,024 through one buffer gives them, the odd remainder first.
QByteArray blockwise(const QByteArray &from, int count);
