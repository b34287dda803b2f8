// The words for a row of results: how much of its picture is there, what was done, what to do next.
#pragma once

#include "window/RowReport.h"

#include <QStringList>

class QIcon;

/// How much of an output's picture is there, or that a source is healthy, in a sentence; empty where nothing of it is known.
QString rowText(const QTreeWidgetItem *row);
/// What to do next about a row's file, beside what adviceLines() says of it; empty if that is all.
QString adviceText(const QTreeWidgetItem *row);
/// What stands under the preview for a row, without its name: a line each.
QStringList detailLines(const QTreeWidgetItem *row);

/// What leads to a sample, or another one, for a source for which mayTrySample() holds.
QString sampleWords(const QTreeWidgetItem *source);

/// The small picture that stands for it, told by its shape; null where there is none.
QIcon badge(Found found);
