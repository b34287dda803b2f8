// The main window with its two pages, the file list and the results, and the driver of a run.
// One class over several files by task: BrowseRepair.cpp (construction), Menus.cpp, FileIntake.cpp, RunStart.cpp,
// RunDriver.cpp, SampleDriver.cpp and HeicSampleDriver.cpp (on the worker), RunEffects.cpp, Results.cpp, Preview.cpp,
// Sample.cpp, DeepSalvage.cpp, StopBackClose.cpp, Saving.cpp, Language.cpp, Links.cpp (help and addresses),
// MoreTools.cpp.
//
// The worker touches no widget and no member but m_plan: it posts effects, which run on the main thread in their order
// and name a row by number. Effects of a run that Back or Close has ended do nothing. While the worker runs, the fields
// of `pApp` are its own, but for the polled flags; what the main thread does with them waits in afterRun().
#pragma once

#include "dialogs/FramelessMove.h"
#include "dialogs/SavingFinishDlg.h"
#include "engine/OutputRows.h"
#include "window/Background.h"
#include "window/EffectQueue.h"
#include "window/PreviewLoader.h"
#include "window/QRepairThread.h"
#include "window/RunPlan.h"

#include <QMenuBar>
#include <QPointer>
#include <QWidget>

#include <atomic>
#include <functional>
#include <map>
#include <memory>

class AdvancedRepairDlg;
class BackApplicationDlg;
class DeepRoad;
class DetailsPane;
class DrgDrp;
class ListCount;
class ListTools;
class MessageBox;
class MyTreeWidget;
class QAbstractButton;
class QAction;
class QCheckBox;
class QLabel;
class QPushButton;
class QTreeWidget;
class QTreeWidgetItem;
class ResultOrder;
class ResultSummary;
class SecondTry;
class Ui_BrowseRepairObj;
struct DropRefusal;
struct FileOutcome;
struct SavedRow;

class BrowseRepair : public QWidget
{
    Q_OBJECT

public:
    /// Of the window, in device-independent pixels.
    static constexpr QSize kSize{849, 598};

    explicit BrowseRepair(QWidget *parent = nullptr);
    /// Ends a run that is under way and waits for it.
    ~BrowseRepair() override;

    // For the worker
    /// Runs the driver that the flags of `pApp` name, on the calling thread.
    void runDriver();
    /// Queues an effect of the plan's run; it does nothing once that run is gone.
    void postToRun(std::function<void()> effect);
    void postWorkerLeft();

    bool workerRuns() const { return m_workerBusy; }
    /// Text of the size column: KiB in whole MiB steps from 1 MiB on; "0" from 1 GiB on.
    static QString GetSizeOfItem(long long bytes);
    /// For the start: tidies up after an update that was ended on its way.
    static void clearUpdateLeftovers();

public slots:
    // File list
    void AddFilesProcess();
    void SetItemInTreeWidget(const QStringList &paths);
    /// Adds files that were named outside of the window, as the dialog would. Those of other formats are named in the
    /// window; where no file is left, the page stays as it is.
    void AddNamedFiles(const QStringList &paths);
    /// Wipes what an earlier program that was ended by force has left below the working root, but for the files at `named`,
    /// which this one was called with. The results of that run were never saved; a run waits until they are gone.
    void wipeLeftovers(const QStringList &named);
    /// Another start of the program: shows the window and takes the files, now or once the file list is up again.
    void ComeToFront(const QStringList &paths);
    void RemoveFrmListProcess();
    /// Takes the current row off the list.
    void RemoveCurrentFile();
    /// RemoveFrmListProcess, and an empty list is the drop zone again.
    void RemoveTickedFiles();
    void OnRepairItemClicked(QTreeWidgetItem *item, int column);
    void OnCheckBoxbtnClicked(bool checked);
    void SelectAllProcess() {}
    void UnselectAllProcess() {}

    // A run
    void OnSaveWindow();
    void SwitchToOriginalState();
    void DisplaySavedItems();
    void OnShowlabel();
    void OnSetCheckBoxEnabled();
    void OnShowProgresslabel(const QString &text, const QString &percent);
    void OnSetFileProgressvalue(unsigned int value);
    void OnshowCustomButton(unsigned int index);
    void OnsetCustomButton(unsigned int number);
    void OnExpandThumb(QTreeWidgetItem *item);
    void OnJPGCAll(const QString &text);
    void OnHideProgressBar();
    void OnShowThumblabl();
    void OnThumbChbox();
    void OnSelectAllLable();
    void OnShowString();
    void OnShowProgress();
    void OnEnableProgressBar();

    // Results
    void OnCompletionMsgBox();
    void OnItemClicked(QTreeWidgetItem *item, int column);
    void OnSaveCheckBoxbtnClicked(bool checked);
    void OnThumbnailHideChkBox(bool checked);
    void OnPreviewHEICFile(const QString &path);
    void SaveImage();

    // Repair with a sample
    void OnClickAddReference(unsigned int id);
    void OnRefe_CheckBoxClicked();
    void ReferenceRepairProcess();

    // Stop, back, close
    void StopProcess();
    void OnStopProcess();
    void OnRunProcess();
    void OnClickedBackBtn();
    void CloseProcess();
    void MinimiseWin();

    // Help and links
    /// The help page that fits the screen; none in languages without help.
    void OnHelp();
    void onHelpBtnClick();
    void onViewSupport();
    void onGenerateTicket();
    void onViewKB();
    void onMailVorlaneSupport();
    void onAbout();
    void onUpdateWizard();
    // The sibling tools; a start that works ends this program.
    void LaunchDataRecovery();
    void LaunchDriveMonitor();
    void LaunchVideoRepair();
    void LaunchPhotoRecovery();

    // The language of the interface, chosen in the first menu bar or the second
    void LoadEnglishLanguages() { loadLanguage(0, &BrowseRepair::OnLanguageChangeCheckBoxUpdate); }
    void LoadGermanLanguages() { loadLanguage(1, &BrowseRepair::OnLanguageChangeCheckBoxUpdate); }
    void LoadFrenchLanguages() { loadLanguage(2, &BrowseRepair::OnLanguageChangeCheckBoxUpdate); }
    void LoadItalianLanguages() { loadLanguage(3, &BrowseRepair::OnLanguageChangeCheckBoxUpdate); }
    void LoadSpanishLanguages() { loadLanguage(4, &BrowseRepair::OnLanguageChangeCheckBoxUpdate); }
    void LoadJapaneseLanguages() { loadLanguage(5, &BrowseRepair::OnLanguageChangeCheckBoxUpdate); }
    void LoadChineseLanguages() { loadLanguage(6, &BrowseRepair::OnLanguageChangeCheckBoxUpdate); }
    void LoadEnglishLanguages2() { loadLanguage(0, &BrowseRepair::OnLanguageChangeCheckBoxUpdate2); }
    void LoadGermanLanguages2() { loadLanguage(1, &BrowseRepair::OnLanguageChangeCheckBoxUpdate2); }
    void LoadFrenchLanguages2() { loadLanguage(2, &BrowseRepair::OnLanguageChangeCheckBoxUpdate2); }
    void LoadItalianLanguages2() { loadLanguage(3, &BrowseRepair::OnLanguageChangeCheckBoxUpdate2); }
    void LoadSpanishLanguages2() { loadLanguage(4, &BrowseRepair::OnLanguageChangeCheckBoxUpdate2); }
    void LoadJapaneseLanguages2() { loadLanguage(5, &BrowseRepair::OnLanguageChangeCheckBoxUpdate2); }
    void LoadChineseLanguages2() { loadLanguage(6, &BrowseRepair::OnLanguageChangeCheckBoxUpdate2); }

signals:
    /// The window is gone, but wiping the results may take a while yet.
    void leaving();
    void displayItem();
    void Showlabel();
    void SetCheckBoxEnabled();
    void ShowProgressLabel(const QString &text, const QString &percent);
    void SetFileProgressvalue(unsigned int value);
    void showCustomButton(unsigned int index);
    void setCustomButton(unsigned int number);
    void ExpandThumb(QTreeWidgetItem *item);
    void msgShow(const QString &text);
    void HideProgressBar();
    void ShowThumblabl();
    void ThumbChbox();
    void SelectAllLable();
    void CompletionMsgBox();
    void ShowString();
    void ShowProgress();
    void EnableProgressBar();
    /// The worker has left, and what waited for it has been done.
    void workerLeft();

protected:
    void closeEvent(QCloseEvent *event) override;
    void changeEvent(QEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;

private:
    // Construction
    void OnInitialization();
    void Init();
    using QWidget::setStyleSheet;
    void setStyleSheet();
    void SetFixedSizeWidget();
    void CreateMenuBar();
    void CreateMenuBar2();
    void CreateShortcuts();
    void fillMenuBar(QMenuBar *bar, std::initializer_list<const char *> fileActions, int number);
    void connectSignals();
    void connectRunSignals();
    void buildTrees();
    void buildDropArea();
    void orderFocus();
    void retranslate();
    void retranslateMenus();
    /// Puts words in their place, now and again whenever the language changes.
    void say(const QObject *place, std::function<void()> words);

    // Languages
    void addLanguageMenu(QMenuBar *bar, int number);
    static void checkLanguage(QMenu *menu);
    void loadLanguage(int number, void (BrowseRepair::*updateChecks)());
    void OnLanguageChangeCheckBoxUpdate();
    void OnLanguageChangeCheckBoxUpdate2();
    void updateLanguageChecks(QMenuBar *bar);
    void SetEnglishGeometry() { setGeometryOf(0); }
    void SetGermanGeometry() { setGeometryOf(1); }
    void SetFrenchGeometry() { setGeometryOf(2); }
    void SetItalianGeometry() { setGeometryOf(3); }
    void SetSpanishGeometry() { setGeometryOf(4); }
    void SetJapaneseGeometry() { setGeometryOf(5); }
    void SetChainesGeometry() { setGeometryOf(6); }
    void setGeometryOf(int number);
    void placeByWords();

    // Help and the sibling tools
    /// Leaves the name of the browser for http in `strDefaultBrowser`, "" if it can't be learnt.
    static void GetDefaultBrowser();
    QString helpTopic() const;
    /// Address of the support page in the current language, "" if there is none.
    QString GetViewSupport() const;
    /// Address of the enquiry form, likewise.
    QString GetGenerateTicket() const;
    void addHelpMenu(QMenuBar *bar);
    void CreateMoreToolsMenu();
    void retranslateMoreTools();
    void launch(const QString &bundle);
    void KillApplication();
    void setTitleLabels();
    /// The program's name on the first page, which a run has put its own title on.
    void showTitle();

    // File list
    bool AlreadyAdded(const QString &path);
    void setListWidths(int size, int date);
    void takePaths(const QStringList &paths, const QStringList &suffixes, bool withIcon);
    void fillRow(QTreeWidgetItem *item, const QString &path, bool withIcon);
    /// The words above the columns of the file list that are seen.
    struct ListHeads
    {
        QString name, path, size, modified, created;
    };
    /// `sortColumn` is -1 for the order of adding, until a header is clicked.
    void setUpList(const QRect &geometry, ListHeads (*heads)(), int sortColumn);
    /// An empty list is as it was before the first file came.
    void showDropZone();
    void showDropRefusal(const DropRefusal &refusal);
    void takeHandedOver();
    void showFilledList();
    void showListState();

    // Deep salvage
    /// The entry of both menu bars and the box of the first page, switched as the preferences have it.
    void CreateDeepSalvageAction();
    void nameDeepSalvageAction();
    /// On the worker, behind the other ways and once their rows are posted: adds one more row if a salvage gives one.
    void salvageRow(DeepRoad &deep, const RunRow &row, int number, FileOutcome &outcome);
    void showSalvageStart(const QString &name);
    /// A run of the salvage alone over these source rows, whose other results stay.
    void trySalvage(const QList<QTreeWidgetItem *> &sources);
    void salvageAgain();
    /// True for the row of a salvaged picture, whatever it is called in the language of the interface.
    static bool isSalvaged(const QTreeWidgetItem *row);

    // A run: on the main thread
    void setUpResultTree();
    /// Names get what the words of the other columns leave.
    void fitResultColumns();
    void RepairFilesProcess();
    void startRun(RunPlan plan);
    QTreeWidgetItem *makeSourceRow(const QTreeWidgetItem *listRow);
    /// The button of a source row, made at the first call.
    CustomButton *makeButton(int index);
    void addOutputRow(QTreeWidgetItem *source, const OutputRow &row, bool leftAligned, bool withResolution);
    /// The word of an output row in the language of the interface.
    static QString typeText(const QString &type);
    void showRunStart();
    void showFileStart(const QString &name);
    /// Tells what was done for a source, at its row, its button and its outputs; a salvaged one has words of its own.
    void setReport(QTreeWidgetItem *source, const FileOutcome &outcome);
    void finishStoppedRows();
    void finishRun();
    /// The start and the end of a run over rows that have been through one.
    void startRunAgain(RunPlan plan);
    void finishRunAgain(bool stopped);
    QTreeWidgetItem *sourceRow(int number) const;
    void afterRun(std::function<void()> task);
    void OnWorkerLeft();
    /// Does work that may take long beside the main thread; until it is done it counts as a worker.
    void runAside(std::function<void()> work);
    void endWorker();
    void resetRunFields();

    // A run: on the worker
    void RepairJpegFile();
    void OnRepairRefrenceFile();
    void OnRepairHEICWithRefFiles();
    /// False if the user has asked to stop; the row then has the status of a stopped one.
    bool repairRow(const RunRow &row, int number, unsigned int &buttonIndex, DeepRoad *deep);
    enum class SampleStep { Next, StopNoted, Leave };
    SampleStep repairRowWithSample(const RunRow &row, int number);
    /// False if a stop came between the outputs.
    bool postOutputs(const RunRow &row, const FileOutcome &outcome, unsigned int &buttonIndex);
    void postProgress(int number);
    /// Moves the bar on to the file `number`, from 1.
    void postStep(int number);
    void postStatus(int row, const char *status);

    // Results
    void showButtonsByStatus();
    /// `text` in the language of the source.
    void makeAdvanceButton(QPushButton *button, const char *text);
    /// The button of a source row; null for other rows and for one that has never needed a button.
    CustomButton *buttonOf(const QTreeWidgetItem *row) const;
    void countChecks();
    void previewRow(QTreeWidgetItem *item);
    /// The summary and the details once a run is over.
    void showFindings();
    /// A current row that isn't seen any more gives its place to the first that is.
    void OnFiltered();
    void showPicture(const QImage &image, const QSize &fullSize);
    void showNoPreview();
    void OnRowEntered(QTreeWidgetItem *item);

    // Repair with a sample
    /// Asks for a sample for the source row; both ways to it end here.
    void askForSample(QTreeWidgetItem *source);
    /// The row that the sample was asked for, null if it is gone.
    QTreeWidgetItem *sampleRow() const;
    /// Its place among the source rows, from 0, however they are sorted.
    int numberOf(const QTreeWidgetItem *source) const;
    RunRow sampleRunRow(const QTreeWidgetItem *source) const;
    void showSampleReport(int row, const FileOutcome &outcome);
    void showHeicSampleOutput(int row, const OutputRows &rows, const FileOutcome &outcome);
    QString sampleText(const QString &path) const;
    void showSampleRunStart(int total);
    void showSampleFile(const QString &name);
    void showSampleOutput(int row, const OutputRows &rows, bool stopped);

    // Saving
    /// Makes the run folder, or asks about one that exists; the answer is in the flags of `pApp`. It has always been true.
    bool CheckSizeOnDisk();
    void CopyFileNew();
    /// Copies the ticked rows that are seen out of `workDir`, which ends in "/". Always true.
    bool DirCopy(const QString &workDir);
    /// Takes the marks off all rows but those that could not be saved.
    void markSaved(const QVector<SavedRow> &rows, const QList<QTreeWidgetItem *> &items);
    void saveTo(const QString &folder);
    void showRefusal(const QString &text);
    /// How many results lie in the working folder alone, "" for none.
    QString unsavedText() const;
    /// Asks whoever is about to leave with unsaved results; true if there are none or they may be lost.
    bool mayLeaveUnsaved();

    static void removeWorkingFolders();

    std::unique_ptr<Ui_BrowseRepairObj> ui;
    DrgDrp *pFileList = nullptr;
    MyTreeWidget *pResultTree = nullptr;
    DetailsPane *m_details = nullptr;
    QPushButton *pDropButton = nullptr;
    QLabel *pDropHint = nullptr;
    ListCount *m_listCount = nullptr;
    ResultSummary *m_summary = nullptr;
    ResultOrder *m_order = nullptr;
    SecondTry *m_secondTry = nullptr;
    ListTools *m_listTools = nullptr;
    MessageBox *pMessageBox = nullptr;
    BackApplicationDlg *pBackDlg = nullptr;
    QPointer<AdvancedRepairDlg> pAdvancedDlg;
    QMenuBar *pMenuBar = nullptr;
    QMenuBar *pMenuBar2 = nullptr;
    QAction *m_deepSalvage = nullptr;
    QCheckBox *m_deepBox = nullptr; ///< the same on the first page
    QPushButton *pMoreToolsBtn = nullptr;
    std::map<const QObject *, std::function<void()>> m_words;
    FramelessMove m_move;

    QStringList lstPendingPaths;
    quint32 nFileIdNext = 0;
    quint32 nFileCount = 0;
    bool bListSetUp = false;
    bool m_takingFiles = false;
    QStringList m_handedOver; ///< files from other starts that wait for the file list

    quint64 nSelectedCount = 0;
    quint32 nNextButtonId = 0;
    QList<RefScan> lstRowButtons;
    RepairedFileInfo curFileInfo;
    QList<RepairedFileInfo> lstRepairedInfo;
    bool bHasRepaired = false;
    QList<QString> strSampleList;
    bool bCloseDialogOpen = false;
    SavingReport m_savingReport; ///< of the last save

    EffectQueue m_effects;
    RunPlan m_plan;                     ///< written only while no worker runs
    quint64 m_run = 0;                  ///< number of the run whose effects count
    bool m_workerBusy = false;          ///< from the start of a worker until its last effect has run
    bool m_stopSeen = false;            ///< the run in hand was left by a stop
    std::atomic<bool> m_leaving{false}; ///< the program ends: a run that starts now stops at once
    std::vector<std::function<void()>> m_afterRun;
    QRepairThread m_repairThread;
    PreviewLoader m_preview{m_effects};
    Background m_aside;
};

/// The main window; null before it is built and after it is gone.
extern BrowseRepair *pMainWindow;
