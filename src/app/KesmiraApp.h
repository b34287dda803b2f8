// The one application object: the plain fields through which the window, the driver and the engine meet.
// Nothing here knows a widget, and nothing here does any work.
#pragma once

#include "engine/RepairReport.h"

#include <QHash>
#include <QString>
#include <QStringList>

#include <cstdio>

class FileWindow;
class ReferenceFileDlg;
struct tagMainList;
struct tagMainListRaw;
struct tagScanFault;
struct RepairedFileList;

/// State shared by the whole program, read and written directly. A fresh object holds empty strings, zero numbers and
/// clear flags, but for `bQuantNotFound`, which is set at rest.
/// Fields that one thread writes while another polls them are plain bytes too; reach those through app/StopFlag.h.
class KesmiraApp
{
public:
    // The start of a desktop program; defined on the desktop side, because the work needs the system's services.
    /// Last step of a start: writes the version records unless they are kept already, fills the system description and
    /// keeps `window` in `pWindow`.
    void InitInstance(void *window);
    /// Writes "VInfoType", "VNo" and "VUpdate" of this release into the store "apple"/"KMPR.db", whatever stood there.
    void ApplicationInfoSettings();
    /// Fills `strHostName`, `strOsName`, `strOsVersionHex`, `strOsVersion` and `strProcessorName`.
    void GetMySystemInfo();
    /// Fills the fields of addresses and labels from the link file `strLinkPlistPath`.
    void GetPlistLinks();
    /// Fills the paths of the sibling tools' settings files, from the program's own folder. None needs to exist.
    void GetOtherAppsPlistPath();

    void *pWindow = nullptr; ///< what InitInstance was given; read by nothing

    // The run and the file in hand
    QStringList lstResultNames; ///< names of the outputs made for the current source file
    QString strCurrentPath;     ///< full path of the file under analysis
    QString strFileName;        ///< its name in the working folder, without folder
    QString strSaveFolder;      ///< destination as the user chose it; gets the renamed run folder appended
    QString strTempDir;         ///< working folder of the run, with trailing "/"
    QString strTempDirName;     ///< leaf name of the working folder, "RepairedFiles"
    QString strDestFolderName;  ///< name of the run folder at the destination
    QString strFileSuffix;      ///< suffix of the file under analysis, as it stands in the name
    QString strDestPath;        ///< run folder at the destination, with trailing "/"
    QString strConflictName;    ///< file name under conflict
    QString strDestRoot;        ///< destination as chosen, never changed by a rename
    QString strRenameTo;        ///< name that the user confirmed for a file in conflict
    QString strPreviewHelperPath;
    QString strDriveWatchPath; ///< the maker's four other tools
    QString strFullRecoverPhotoPath;
    QString strClipMenderPath;
    QString strFullRecoverPath;
    QString strDriveWatchPlistPath; ///< the settings files of these tools
    QString strFullRecoverPhotoPlistPath;
    QString strClipMenderPlistPath;
    QString strFullRecoverPlistPath;
    QString strContactSalesLink; ///< addresses and labels of the link file, "" where it lacks the key
    QString strContactSalesName;
    QString strEmailToSupport;
    QString strSupportName;
    QString strKBLink;
    QString strKBName;
    QString strSkypeID;
    QString strSkypeLink;
    QString strSubmitEnquiryLink;
    QString strSubmitEnquiryName;
    QString strWebsiteLink;
    QString strWebsiteName;
    QString strDefaultBrowser;
    QString strResourcesPath; ///< resource folder of the outer bundle
    QString strLinkPlistPath; ///< link and settings file in that folder
    QString strProcessorName; ///< system description for support text
    QString strHostName;
    QString strOsName;
    QString strOsVersionHex;
    QString strOsVersion;
    quint32 nCopyCounter = 0;      ///< running number of "Rename All"; never reset while the program runs
    qint32 nUnused = -1;           ///< holds its first value for ever
    qint32 nRepairOutputMode = 0;  ///< 2 in every run: main images and thumbnails
    quint32 nInvalidCount = 0;     ///< files that the writers could not rebuild; reset for each file
    quint32 nThumbAbsentCount = 0; ///< files without a thumbnail
    quint64 nFileSize = 0;         ///< size in bytes of the file under analysis
    QString strCloseAnswer;        ///< "YesBtn" or "NoBtn"
    ReferenceFileDlg *pReferenceFileDlg = nullptr;
    bool bLangEnglish = false;
    bool bLangGerman = false;
    bool bLangFrench = false;
    bool bLangItalian = false;
    bool bLangSpanish = false;
    bool bLangChinese = false;
    bool bLangJapanese = false;
    bool bStopRepair = false;          ///< the user asked to stop; every long loop polls it
    bool bReferenceRepair = false;     ///< the run repairs JPEG files with a sample
    bool bHeicReferenceRepair = false; ///< the run repairs HEIC files with a sample
    bool bBackRequested = false;
    bool bRunMessage = false;
    bool bRepairRunning = false; ///< the loop over the files may go on; clear, a chain takes no second node
    bool bOverwriteOnce = false; ///< answers for one file in conflict
    bool bRenameOnce = false;
    bool bSkipCurrentFile = false;
    bool bOverwriteAll = false; ///< answers for all remaining files
    bool bRenameAll = false;
    bool bSkipAllFiles = false;
    bool bFolderOverwrite = false; ///< answers for the run folder
    bool bFolderRename = false;
    bool bSaveCancelled = false;
    bool bResultsPage = false;
    bool bFileInProgress = false;
    bool bFileListActive = false;
    bool bFirstScreen = false;
    bool bBackEnabled = false;
    bool bRepairScreen = false;
    bool bSampleRunState = false;
    bool bChineseBuild = false;
    quint16 nResultCounter = 0; ///< outputs written in this run
    quint16 nSavedCount = 0;    ///< files copied to the destination by the last save

    // Analysis, tables and writers
    QString strRepairedPath; ///< the repaired main image in the working folder
    QString strReportName;   ///< display name of the main image
    QString strThumb1Name;
    QString strThumb1Path;
    QString strTempCopyPath; ///< the working copy temp.jpg
    QString strBuiltPath;    ///< the image last rebuilt in the scratch folder
    QString strThumbFolder;
    QString strStatusText; ///< last status text of the save step
    QString strThumb2Name;
    QString strThumb2Path;
    QString strCr3FullName;
    QString strCr3PreviewName;
    QString strCr3ThumbName;
    quint64 nHuffmanResultLength = 0; ///< bytes in `aHuffmanResult`, 0 if no table was recognised
    quint32 nDhtCount = 0;            ///< DHT nodes made while bDhtUsable was set
    quint64 nDhtPart2 = 0;            ///< offset, from the marker, of the second table inside a single DHT
    quint32 nDhtPart3 = 0;
    quint32 nDhtPart4 = 0;
    quint32 nDqtLength = 0;      ///< length field of the DQT being rebuilt: 67, 132 or 197
    quint32 nDqtIndex = 0;       ///< which 67-byte DQT is being rebuilt, from 0
    quint32 nDqt67Count = 0;     ///< 67-byte DQT nodes recorded
    quint32 nThumbPass = 0;      ///< 0 main stage, 1 working copy freshly written, 2 working copy walked
    quint32 nSavePhase = 0;      ///< 2 main image, 1 nested images, 0 idle
    quint32 nNestedImages = 0;   ///< running count of SOI and EOI nodes and accepted nested SOI
    quint32 nThumbOffset = 0;    ///< cleared by the marker walk; nothing else touches it
    quint32 nSampleFormatId = 0; ///< row button whose sample dialog was asked for
    QString strSamplePath;
    quint32 nScanOffset = 0;   ///< file offset of the SOS marker of the main scan
    quint64 nHeaderBytes = 0;  ///< bytes in front of the first SOS of the output
    quint64 nWalkFileSize = 0; ///< file size as seen by the last marker walk
    quint64 nTempCopySize = 0; ///< size of the working copy
    bool bHeicStandardSelfie = false;
    bool bHeicStandard = false;
    bool bHeicSquare = false;
    bool bHeicSquareSelfie = false;
    bool bHeicHeaderIntact = false;
    bool bHeicOddTileCount = false;
    FileWindow *pHeicSource = nullptr; ///< the HEIC being repaired, open from its scan until its result is finished
    FILE *pHeicOutput = nullptr;
    bool bWorkOnTempCopy = false; ///< the analysis reads the working copy and not the user's file
    bool bThumbOnlyMode = false;  ///< never set in this release
    bool bThumbFound = false;     ///< a nested image of positive length was recorded
    bool bSavedThumbOnly = false; ///< diagnostics of the save step, read by nothing
    bool bSavedMain = false;
    bool bQuantNotFound = true; ///< no library table is known for the current request
    bool bSteppedOverBytes = false;
    bool bSoiFirst = false; ///< flags of the header check
    bool bEoiSeen = false;
    bool bSof0Seen = false;
    bool bSof1Seen = false;
    bool bSof2Seen = false;
    bool bDhtSeen = false;
    bool bDqtSeenInSequence = false;
    bool bSosSeen = false;
    bool bQuantPairPatched = false;   ///< one table of a pair was filled from the other
    bool bQuantTriplePatched = false; ///< one table of a triple was filled from another
    bool bSaveDone = false;
    bool bTrailingImages = false;   ///< a further SOI lies behind the end of the main scan
    bool bContainerWalk = false;    ///< the file is walked as a stream of embedded images
    bool bUseOuterFileSize = false; ///< AddListRaw takes nFileSize from nWalkFileSize
    bool bNestedOnlyFile = false;   ///< diagnostics, read by nothing
    bool bHasApp1Images = false;
    bool bHasApp2Images = false;
    bool bHasApp13Images = false;
    bool bHasSoiImages = false;
    bool bApplyToAllSameFormat = false;
    quint16 nImageWidth = 0;   ///< samples per line from the last SOF0 to SOF2
    quint16 nGapAfterDqt1 = 0; ///< non-marker positions behind the first DQT
    quint16 nGapAfterDqt2 = 0; ///< behind the second
    quint16 nGapAfterDqt3 = 0; ///< behind the third
    quint32 nNestedTotalA = 0; ///< diagnostics
    quint32 nNestedTotalB = 0;
    FileWindow *pCurrentFile = nullptr; ///< reader of the file under analysis
    tagMainList *pMainListHead = nullptr;
    tagMainList *pMainListTail = nullptr;
    tagMainList *pMainListNext = nullptr;
    tagMainListRaw *pMainListRawHead = nullptr;
    tagMainListRaw *pMainListRawTail = nullptr;
    tagMainListRaw *pMainListRawNext = nullptr;
    tagScanFault *pScanFaultHead = nullptr;
    tagScanFault *pScanFaultTail = nullptr;
    tagScanFault *pScanFaultNext = nullptr;
    RepairedFileList *pRepairedHead = nullptr;
    RepairedFileList *pRepairedTail = nullptr;
    RepairedFileList *pRepairedNext = nullptr;
    quint8 aDhtHead2[17] = {}; ///< Tc/Th byte and 16 counts of the second table of a single DHT
    quint8 aDhtHead3[17] = {};
    quint8 aDhtHead4[17] = {};
    quint8 nFirstSampling = 0;
    quint8 aQuantHead1[25] = {}; ///< first values of the first quantization table of the file
    quint8 aQuantHead2[25] = {};
    quint8 aQuantHead3[25] = {};
    quint8 aQuantOne[69] = {}; ///< result of a search for one table, a pair, a triple: whole DQT segments
    quint8 aQuantPair[134] = {};
    quint8 aQuantTriple[199] = {};
    quint8 aHuffmanResult[420] = {}; ///< recognised DHT segment, marker included
    quint8 nThirdQuantSelector = 0;  ///< Tq byte of the third component from the last SOF0 to SOF2

    // Beside the told state
    bool bDeepSalvage = false;               ///< the window's runs try deep salvage too; the main thread's own
    bool bCameraData = false;                ///< saved copies get the camera's data back; the main thread's own
    RepairReport report;                     ///< what was done for the current file and why
    QHash<QString, QString> mapWorkingNames; ///< source path -> name in the working folder, for this run
    QHash<QString, QString> mapNameOwners;   ///< name in the working folder -> source path, for this run
};

extern KesmiraApp *const pApp;
