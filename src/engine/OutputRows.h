// From the names that the engine left to the rows that a person sees; knows no widget.
#pragma once

#include "engine/OneFile.h"

#include <QImage>
#include <QString>
#include <QVector>

struct OutputRow
{
    QString name; ///< without any "/"
    /// "Repaired", "Extracted", "Thumbnail" or "Salvaged"; empty for a third picture of a raw file out of rank.
    QString type;
    QString resolution; ///< height "x" width; "0x0" if the output doesn't decode
    QString path;       ///< where the output lies in the working folder; also the icon's and the preview's file
    bool thumbnail = false;
    QString statusCode = QStringLiteral("4"); ///< status of the output row
    QImage icon;                              ///< the picture, at most 32 x 32; null if it doesn't decode
    Wholeness wholeness{};                    ///< how much of the picture is there
};

struct OutputRows
{
    QString sourceStatus; ///< status of the source row once its rows stand
    QVector<OutputRow> rows;
};

/// Rows for the outputs of one source, in their order. An output of a JPEG whose name holds "_[T4]" gets none; those of
/// a raw file are told apart by their widths.
OutputRows makeRows(const FileOutcome &outcome);
/// The row of a sample repair; a suffix other than jpg, jpeg, JPG and JPEG gets none.
OutputRows makeSampleRows(const FileOutcome &outcome);

/// Where the output `name` of the current run lies: the place that its kind has, and where no file is there, the place
/// where the writer put it (a second thumbnail). Empty if it is in neither.
QString outputPath(const QString &name);
/// Its place below the run folder at a destination, for instance "Thumbnail Repaired/a_[T1].jpg".
QString destinationPlace(const QString &name);
/// True for names of nested images with rows of type "Thumbnail", "_[T1]" to "_[T4]".
bool isThumbnailName(const QString &name);
