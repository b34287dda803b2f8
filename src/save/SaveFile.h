// Turns the segment list of a JPEG into repaired files in the working folder, and settles names at the destination.
#pragma once

#include "engine/RepairReport.h"
#include "engine/SegmentList.h"
#include "save/FaultSet.h"

#include <QObject>
#include <QString>

#include <climits>
#include <cstdio>
#include <functional>

class ConflictPrompt;
class jpg_repair;

/// One recorded output of a run.
struct RepairedFileList
{
    QString strPath; ///< in the working folder
    QString strName; ///< display name
    quint32 nResultNumber = 0;
    quint16 wOutputsDone = 0;
    quint16 wOutputIndex = 0;
    quint16 wState = 0; ///< 0 main writer, 1 nested-image writer, 101 failed, 102 invalid, 103 and 104 thumbnails
    bool bNested = false;
    RepairedFileList *pNextResult = nullptr;
};

/// Lives for one file. All input and output runs through `pApp`.
class SaveFile : public QObject
{
    Q_OBJECT

public:
    SaveFile();

    /// Counts what the chain holds, fixes names and paths and hands over to a writer. Sets `bSaveDone`.
    void Save();

    /// Writer of an ordinary JPEG: the main image, then up to two nested ones. 0 if a stop was asked for, else 1.
    int SaveFile_new();
    /// Writer of a container stream: the main image, then every image on an SOI node. Always 1.
    int SaveFile_new_raw();

    /// True if the main chain, from its start point, gives an image. `skipMode` 1 starts behind the first image of the
    /// chain, any other value at the head. Sets the "seen" flags of `pApp`.
    bool CheckMarkerSequence(unsigned int skipMode);
    bool CheckMarkerSequence_Raw(unsigned int);
    /// Writes a fresh JPEG from the main chain into `out`, which stands at 0. Opens and closes the source itself.
    void SaveStart_newFormat(FILE *out, unsigned int skipMode);
    /// The same from the raw chain. Moves the fault chain into a set of this object, which all images share.
    void SaveStart_newFormatRaw(FILE *out);

    /// Writes entry `index` of the first node that has a nested image left into `out`.
    void ReadForSave_thumb(FILE *out, int index);
    /// Writes the image of the first usable SOI node at or behind node `index` into `out`, and records its SOI on the raw
    /// chain.
    void ReadForSave_thumb_Raw(FILE *out, int index);
    /// Copies the file at `strBuiltPath` into `out`: `nTempCopySize` bytes, whatever its own size is.
    void SaveExactCopy_new(FILE *out);
    /// The same with the file's own size.
    void SaveExactCopy_new_org(FILE *out);

    /// Records an output and appends its name to `lstResultNames`; does neither if no file is at `path`.
    void AddRepairedFileList(RepairedFileList **head, RepairedFileList **tail, const QString &path, const QString &name,
                             unsigned int number, unsigned short outputsDone, unsigned short outputIndex,
                             unsigned short state, bool nested);

    /// Makes the run folder at the destination, or asks `prompt` what to do with one that exists. Always true.
    bool SaveTree(const QString &folder, ConflictPrompt &prompt);
    /// The path to write a file to whose place `path` may be taken, or "" to skip it.
    QString CheckForFile_FolderNAME(const QString &path, ConflictPrompt &prompt);

signals:
    void showMsg(const QString &message);

private:
    /// One image on its way from the chain to the working folder.
    struct Output
    {
        QString scratch; ///< where it is built and judged
        QString path;    ///< where its copy goes
        QString name;
        RepairWay way = RepairWay::Nested;
        bool wholeCopy = false; ///< copied with its own length, not the working copy's
        QString failureText;
        quint16 failureState = 0;
        QString failureMark; ///< behind the name of a record of failure
    };
    /// Which nested image a turn takes, and what it does with the chain.
    struct Turn
    {
        bool keepChain = false;
        unsigned int skipMode = 1;
        bool first = false; ///< takes the first of the two names
    };

    void forgetFile();
    void countMarks();
    bool chooseStreamBranch();
    void nameOutputs();
    QString nestedName(int number, const QString &front = {}) const;

    void setStates(bool nestedWriter);
    int finish();
    bool writeMain(bool sequenceHolds, const QString &invalidMark);
    Output mainOutput() const;
    Output nestedOutput(const QString &name, const QString &path) const;
    bool buildAndCopy(const Output &output, const std::function<void(FILE *)> &write);
    void recordFailure(const QString &text, quint16 state, const QString &path, const QString &name);
    void recordAbsentThumbnail(const QString &mark);
    bool record(const QString &path, const QString &name);

    bool writeNestedImages();
    Turn chooseTurn(int &imageIndex, int &passes) const;
    bool isSingle() const;
    FILE *openWorkingCopy();
    bool fillWorkingCopy(const std::function<void(FILE *)> &write);
    bool buildScratch(const Output &output, const std::function<void(FILE *)> &write);
    bool keepCopy(const Output &output);
    bool closeWhole(FILE *file, const QString &path);
    bool writeNested(const Turn &turn);
    bool writeStreamImages();
    bool writeStreamImage(jpg_repair &engine, int index);
    const tagMainList *streamNode(int index);

    template<typename Node>
    bool checkSequence(const Node *node);
    template<typename Node>
    void writeFormat(FILE *out, const Node *start);
    const tagMainList *startNode(unsigned int skipMode) const;

    // Scratch of AddRepairedFileList
    RepairedFileList *pListWalk = nullptr;
    RepairedFileList *pListNew = nullptr;
    RepairedFileList *pListLast = nullptr;
    // Sums of the nodes' counts: 2 for each nested image, 1 for one left open
    qint32 nApp1Marks = 0;
    qint32 nApp13Marks = 0;
    qint32 nApp2Marks = 0;
    qint32 nSoiMarks = 0;
    // Images still to be taken from the nodes of each kind
    qint32 nApp1Images = 0;
    qint32 nApp13Images = 0;
    qint32 nApp2Images = 0;
    qint32 nSoiImages = 0;
    qint32 nOutputsDone = 0;
    qint32 nOutputIndex = 0;   ///< outputs expected, or the number of the stream's image in hand
    qint32 nImagesToWrite = 0; ///< nested images still to write
    quint16 wResultState = 0;
    quint16 wStateFailed = 0;
    quint16 wStateInvalid = 0;
    quint16 wStateThumbAbsent = 0;
    quint16 wStateThumbCorrupt = 0;
    bool bFromNestedWriter = false;
    bool m_lost = false; ///< bytes of the file in hand could not be read or written

    const tagMainList *m_nestedFirst = nullptr; // first node of the working copy's, behind the main image's
    const tagMainList *m_streamNode = nullptr;  // last node looked at for a stream's image, its place on the chain,
    int m_streamIndex = 0;                      // and for which place it was looked for
    int m_streamAsked = INT_MAX;
    int m_streamRefusals = 0;  // images in a row that did not decode
    quint64 m_streamBytes = 0; // carved out of the stream so far, or looked at for it
    FaultSet m_streamFaults;
};
