// What a run works on: a copy of the rows, so that the worker never looks at the tree, and the records that it leaves.
#pragma once

#include "engine/OneFile.h"

#include <QString>
#include <QVector>

class CustomButton;

/// A source row as it stood when the run started.
struct RunRow
{
    int row = 0;                              ///< its place among the source rows, from 0
    QString name;                             ///< column 0
    QString path;                             ///< column 2
    SampleName sampleName = SampleName::Told; ///< of a run with a sample
};

struct RunPlan
{
    quint64 run = 0; ///< number of the run that the plan belongs to
    QVector<RunRow> rows;
    QString samplePath;            ///< healthy file of a run with a sample
    bool deepSalvage = false;      ///< as it was switched when the run started, whatever is chosen meanwhile
    bool again = false;            ///< beside results that stand: ticks stay as they are
    QVector<FileOutcome> salvaged; ///< deep salvage alone, over what is known of each row; empty for all other runs
};

/// One source row and its button.
struct RefScan
{
    quint32 nId = 0;
    QString strName;
    CustomButton *pButton = nullptr;
};

/// An output of the run, for the interface.
struct RepairedFileInfo
{
    QString strName;
    QString strResolution;
    QString strPath;
    QString strType;
};

/// Property of a row's button: its words in the language of the source.
constexpr char kWords[] = "words";

/// Columns of the results tree.
namespace column {
constexpr int Name = 0;
constexpr int Type = 1;
constexpr int Path = 2;
constexpr int Resolution = 3;
constexpr int Status = 4;
constexpr int ButtonId = 5;
constexpr int IsSource = 6;
} // namespace column
