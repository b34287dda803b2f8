// Construction of the main window.
#include "window/BrowseRepair.h"
#include "update/UpdateState.h"
#include "window/CameraDataSwitch.h"

#include "app/KesmiraApp.h"
#include "desktop/Look.h"
#include "desktop/ScreenFit.h"
#include "desktop/platform/Platform.h"
#include "dialogs/BackApplicationDlg.h"
#include "dialogs/CloseApplicationDlg.h"
#include "dialogs/CompletionMsg.h"
#include "dialogs/MessageBox.h"
#include "dialogs/ReferenceFileDlg.h"
#include "dialogs/StopDlg.h"
#include "window/CustomButton.h"
#include "window/DetailsPane.h"
#include "window/DrgDrp.h"
#include "window/Globals.h"
#include "window/ListCount.h"
#include "window/ListTools.h"
#include "window/MyTreeWidget.h"
#include "window/NameDelegate.h"
#include "window/PanelOpener.h"
#include "window/ResultOrder.h"
#include "window/ResultSummary.h"
#include "window/RowReport.h"
#include "window/SecondTry.h"
#include "window/ui_BrowseRepairObj.h"

#include <QEvent>
#include <QGuiApplication>
#include <QHeaderView>
#include <QScreen>
#include <QTimer>

BrowseRepair *pMainWindow = nullptr;
CloseApplicationDlg *closeApp = nullptr;
StopDlg *stopDlgObj = nullptr;
CompletionMsg *CompletionMsgObj = nullptr;

namespace {

constexpr int kStripHeight = 28;

} // namespace

BrowseRepair::BrowseRepair(QWidget *parent)
    : QWidget(parent), ui(std::make_unique<Ui_BrowseRepairObj>()), m_move(this, kStripHeight)
{
    ui->setupUi(this);
    pMainWindow = this;
    setWindowFlags(Qt::Window | Qt::FramelessWindowHint);
    setFixedSize(kSize);
    const QRect desktop = QGuiApplication::primaryScreen()->availableGeometry();
    const QPoint centred(desktop.x() + (desktop.width() - width()) / 2,
                         desktop.y() + (desktop.height() - height()) / 2);
    move(placeWithin(QRect(centred, size()), desktop));
    OnInitialization();
    buildTrees();

    ui->HelpBtn_1->setVisible(!pApp->bChineseBuild);
    ui->HelpBtn->setVisible(!pApp->bChineseBuild);
    if (!pApp->bChineseBuild) {
        ui->UpdateBtn_2->show();
        ui->UpdateBtn->show();
    }
    buildDropArea();
    setStyleSheet();
    for (QWidget *hidden : {static_cast<QWidget *>(ui->StartRepairFilesBtn), static_cast<QWidget *>(ui->RemovFileBtn),
                            static_cast<QWidget *>(ui->checkBox1), static_cast<QWidget *>(ui->label_2),
                            static_cast<QWidget *>(ui->Add_FilesmainString)})
        hidden->hide();
    ui->checkBox1->setEnabled(false);
    ui->ShowLabl->show();
    pApp->pReferenceFileDlg = new ReferenceFileDlg(this, QString());
    ui->checkBox3->setChecked(true);
    ui->checkBox3->setEnabled(false);
    ui->label_2->setEnabled(false);
    ui->SelectAll_labl->setEnabled(false);
    setTitleLabels();
    Init();
    SetFixedSizeWidget();
    CreateMoreToolsMenu();
    connectSignals();
    orderFocus();
    ui->graphicsView->setFixedSize(430, 290);
    pApp->bFirstScreen = true;
    pDropButton->setFocus();
}

BrowseRepair::~BrowseRepair()
{
    endWorker();
    pApp->pReferenceFileDlg = nullptr;
    closeApp = nullptr;
    stopDlgObj = nullptr;
    CompletionMsgObj = nullptr;
    pMainWindow = nullptr;
}

void BrowseRepair::OnInitialization()
{
    const QPixmap strip = look::picture(QStringLiteral(":/res/top strips.png"), devicePixelRatioF());
    ui->TopLabel->setPixmap(strip);
    ui->topLabel_2->setPixmap(strip);
    ui->image_label->setPixmap(look::picture(QStringLiteral(":/res/banner.png"), devicePixelRatioF()));
    ui->image_label->setScaledContents(true);
    setWindowIcon(QIcon(QStringLiteral(":/res/kesmira-48.png")));

    pApp->bReferenceRepair = false;
    pApp->bHeicReferenceRepair = false;
    pApp->bApplyToAllSameFormat = false;
    pApp->bResultsPage = false;
    pApp->bFileListActive = false;
    pApp->bBackRequested = false;
    pApp->bBackEnabled = false;
    pApp->bRepairScreen = false;
    pApp->bSampleRunState = false;
    pApp->strCloseAnswer.clear();
    pApp->strSamplePath.clear();
    pApp->strFileSuffix.clear();
    bHasRepaired = false;
    nFileIdNext = 2;
    pApp->pReferenceFileDlg = nullptr;
    pMessageBox = new MessageBox(this);
}

void BrowseRepair::buildTrees()
{
    pFileList = new DrgDrp(ui->frame);
    pFileList->setObjectName(QStringLiteral("pFileList"));
    pFileList->setColumnCount(0);
    pFileList->setHeaderHidden(true);
    pFileList->setFocusPolicy(Qt::NoFocus); // empty as yet
    pFileList->setGeometry(25, 240, 800, 280);
    pFileList->setAttribute(Qt::WA_MacShowFocusRect,
                            false); // the current row shows the focus, not a ring around the list

    pResultTree = new MyTreeWidget(ui->frame2);
    pResultTree->setObjectName(QStringLiteral("pResultTree"));
    pResultTree->setGeometry(22, 180, 400, 290);
    pResultTree->setAttribute(Qt::WA_MacShowFocusRect, false);
    new PanelOpener(pResultTree, ui->graphicsView, ui->frame2); // which owns it
    m_details = new DetailsPane(pResultTree, ui->frame2);
    m_details->setGeometry(432, 474, 400, 68); // the free band under the preview
    m_listCount = new ListCount(pFileList, ui->frame);
    m_summary = new ResultSummary(pResultTree, ui->frame2);
    m_order = new ResultOrder(pResultTree);
    pResultTree->setItemDelegateForColumn(column::Name, new NameDelegate(pResultTree));
    m_secondTry = new SecondTry(pResultTree, m_details, ui->frame2); // which owns it
}

void BrowseRepair::buildDropArea()
{
    pFileList->pDropArea->setGeometry(0, 0, 800, 280);
    pDropButton = new QPushButton(pFileList->pDropArea);
    pDropButton->setObjectName(QStringLiteral("pDropButton"));
    pDropButton->setProperty("role", "dropzone");
    pDropButton->setFlat(true);
    pDropButton->setGeometry(319, 75, 141, 141);
    pDropHint = new QLabel(pFileList->pDropArea);
    pDropHint->setObjectName(QStringLiteral("pDropHint"));
    pDropHint->setProperty("role", "hint");
    pDropHint->setAlignment(Qt::AlignCenter);
    pDropHint->setGeometry(29, 222, 721, 40); // under the button, which isn't in the middle
    pDropHint->setWordWrap(true);
    m_listTools = new ListTools(ui->frame);
}

void BrowseRepair::setStyleSheet()
{
    // Colours and fonts stand in the one style sheet of the program; what is left here belongs to single widgets.
    ui->label_4->setStyleSheet(QStringLiteral("background-color: transparent;"));
    ui->label->setStyleSheet(QStringLiteral("background-color: transparent;"));
    ui->graphicsView->setFrameShape(QFrame::NoFrame);
    ui->label_3->setFont(look::font(QStringLiteral("Helvetica neue Medium"), 19));
    ui->label_5->setFont(look::font(QStringLiteral("Helvetica neue"), 13));
}

void BrowseRepair::setTitleLabels()
{
    for (QLabel *label : {ui->label_4, ui->label}) {
        label->setText(tr("Kesmira"));
        label->setFont(look::font(QStringLiteral("Helvetica neue Medium"), 14));
        label->setAlignment(Qt::AlignCenter);
    }
}

void BrowseRepair::Init()
{
    CreateShortcuts();
    CreateDeepSalvageAction();
    if (!pApp->bChineseBuild) {
        CameraDataSwitch::make(this);
        CreateMenuBar();
    }
    pBackDlg = new BackApplicationDlg(this);
    closeApp = new CloseApplicationDlg(this);
    stopDlgObj = new StopDlg(this);
    CompletionMsgObj = new CompletionMsg(this);
    connect(stopDlgObj->YesBtn, &QPushButton::clicked, this, &BrowseRepair::OnStopProcess);
    connect(stopDlgObj->NoBtn, &QPushButton::clicked, this, &BrowseRepair::OnRunProcess);
    retranslate();
    for (QWidget *hidden : {static_cast<QWidget *>(ui->AddFilesBtn), static_cast<QWidget *>(ui->RemovFileBtn),
                            static_cast<QWidget *>(ui->frame2), static_cast<QWidget *>(ui->progressBar_2),
                            static_cast<QWidget *>(ui->graphicsView)})
        hidden->hide();
    ui->StartRepairFilesBtn->setEnabled(false);
    GetDefaultBrowser();
    pApp->ApplicationInfoSettings();
    pApp->GetMySystemInfo();
}

void BrowseRepair::retranslate()
{
    ui->retranslateUi(this);
    setTitleLabels();
    retranslateMenus();
    nameDeepSalvageAction();
    m_listTools->retranslate();
    pDropButton->setToolTip(tr("Add Files"));
    pDropButton->setAccessibleName(tr("Add Files"));
    pDropHint->setText(tr("Click to add photos, or drag JPEG files here."));
    pFileList->setAccessibleName(tr("Files to repair"));
    pResultTree->setAccessibleName(tr("Repair results"));
    m_details->setAccessibleName(tr("Details"));
    retranslateMoreTools();
    m_listCount->count();
    for (const auto &[place, words] : m_words) words();
    for (QTreeWidgetItemIterator it(pResultTree); *it; ++it) {
        const QString type = (*it)->data(column::Type, Qt::UserRole).toString();
        if (!type.isEmpty()) (*it)->setText(column::Type, typeText(type));
        CustomButton *button = buttonOf(*it);
        if (button && !button->text().isEmpty()) button->setText(tr(button->property(kWords).toByteArray()));
    }
    for (int i = 0; i < pResultTree->topLevelItemCount(); ++i) describeRows(sourceRow(i));
    m_summary->retranslate();
    m_secondTry->retranslate();
    m_details->refresh();
}

void BrowseRepair::say(const QObject *place, std::function<void()> words)
{
    words();
    m_words[place] = std::move(words);
}

void BrowseRepair::changeEvent(QEvent *event)
{
    QWidget::changeEvent(event);
    if (event->type() != QEvent::LanguageChange || !pDropHint) return;
    retranslate();
    SetFixedSizeWidget();
}

void BrowseRepair::connectSignals()
{
    connectRunSignals();
    connect(ui->AddFilesBtn, &QPushButton::clicked, this, &BrowseRepair::AddFilesProcess);
    connect(pDropButton, &QPushButton::clicked, this, &BrowseRepair::AddFilesProcess);
    connect(ui->RemovFileBtn, &QPushButton::clicked, this, &BrowseRepair::RemoveFrmListProcess);
    connect(pFileList, &DrgDrp::removeFileAsked, this, &BrowseRepair::RemoveCurrentFile);
    connect(pFileList, &DrgDrp::removeTickedAsked, this, &BrowseRepair::RemoveTickedFiles);
    connect(m_listTools->removeFile, &QPushButton::clicked, this, &BrowseRepair::RemoveCurrentFile);
    connect(m_listTools->removeTicked, &QPushButton::clicked, this, &BrowseRepair::RemoveTickedFiles);
    connect(pFileList, &DrgDrp::refused, this, &BrowseRepair::showDropRefusal);
    connect(pFileList, &DrgDrp::setPath, this, &BrowseRepair::SetItemInTreeWidget);
    connect(pFileList, &QTreeWidget::itemClicked, this, &BrowseRepair::OnRepairItemClicked);
    connect(ui->checkBox1, &QCheckBox::clicked, this, &BrowseRepair::OnCheckBoxbtnClicked);
    connect(ui->StartRepairFilesBtn, &QPushButton::clicked, this, &BrowseRepair::OnSaveWindow);

    connect(pResultTree, &QTreeWidget::itemClicked, this, &BrowseRepair::OnItemClicked);
    connect(m_summary, &ResultSummary::filtered, this, &BrowseRepair::OnFiltered);
    connect(m_secondTry, &SecondTry::sampleAsked, this, &BrowseRepair::askForSample);
    connect(m_secondTry, &SecondTry::salvageAsked, this, &BrowseRepair::trySalvage);
    connect(pResultTree, &MyTreeWidget::rowEntered, this, &BrowseRepair::OnRowEntered);
    connect(pResultTree, &MyTreeWidget::rowReached, this, [this](QTreeWidgetItem *item) {
        // A click folds its row; whoever walks through the tree by arrow keys must find the rows below.
        const bool open = item->isExpanded();
        OnItemClicked(item, column::Name);
        item->setExpanded(open);
    });
    connect(ui->checkBox1_2, &QCheckBox::clicked, this, &BrowseRepair::OnSaveCheckBoxbtnClicked);
    connect(ui->checkBox3, &QCheckBox::clicked, this, &BrowseRepair::OnThumbnailHideChkBox);
    connect(ui->StopRepairProcessBtn_2, &QPushButton::clicked, this, &BrowseRepair::StopProcess);
    connect(ui->BackBtn_2, &QPushButton::clicked, this, &BrowseRepair::OnClickedBackBtn);
    connect(ui->SaveRepairBtn_2, &QPushButton::clicked, this, &BrowseRepair::SaveImage);
    connect(pApp->pReferenceFileDlg->RepairBtn, &QPushButton::clicked, this, &BrowseRepair::ReferenceRepairProcess);
    connect(pApp->pReferenceFileDlg->checkBox, &QCheckBox::clicked, this, &BrowseRepair::OnRefe_CheckBoxClicked);

    for (QPushButton *button : {ui->closeBtn, ui->closeBtn_2})
        connect(button, &QPushButton::clicked, this, &BrowseRepair::CloseProcess);
    for (QPushButton *button : {ui->MiniMaBtn, ui->MiniMaBtn_2})
        connect(button, &QPushButton::clicked, this, &BrowseRepair::MinimiseWin);
    for (QPushButton *button : {ui->HelpBtn, ui->HelpBtn_1})
        connect(button, &QPushButton::clicked, this, &BrowseRepair::OnHelp);
    for (QPushButton *button : {ui->UpdateBtn, ui->UpdateBtn_2})
        connect(button, &QPushButton::clicked, this, &BrowseRepair::onUpdateWizard);
}

void BrowseRepair::connectRunSignals()
{
    connect(this, &BrowseRepair::displayItem, this, &BrowseRepair::DisplaySavedItems);
    connect(this, &BrowseRepair::Showlabel, this, &BrowseRepair::OnShowlabel);
    connect(this, &BrowseRepair::SetCheckBoxEnabled, this, &BrowseRepair::OnSetCheckBoxEnabled);
    connect(this, &BrowseRepair::ShowProgressLabel, this, &BrowseRepair::OnShowProgresslabel);
    connect(this, &BrowseRepair::SetFileProgressvalue, this, &BrowseRepair::OnSetFileProgressvalue);
    connect(this, &BrowseRepair::showCustomButton, this, &BrowseRepair::OnshowCustomButton);
    connect(this, &BrowseRepair::setCustomButton, this, &BrowseRepair::OnsetCustomButton);
    connect(this, &BrowseRepair::ExpandThumb, this, &BrowseRepair::OnExpandThumb);
    connect(this, &BrowseRepair::msgShow, this, &BrowseRepair::OnJPGCAll);
    connect(this, &BrowseRepair::HideProgressBar, this, &BrowseRepair::OnHideProgressBar);
    connect(this, &BrowseRepair::ShowThumblabl, this, &BrowseRepair::OnShowThumblabl);
    connect(this, &BrowseRepair::ThumbChbox, this, &BrowseRepair::OnThumbChbox);
    connect(this, &BrowseRepair::SelectAllLable, this, &BrowseRepair::OnSelectAllLable);
    connect(this, &BrowseRepair::CompletionMsgBox, this, &BrowseRepair::OnCompletionMsgBox);
    connect(this, &BrowseRepair::ShowString, this, &BrowseRepair::OnShowString);
    connect(this, &BrowseRepair::ShowProgress, this, &BrowseRepair::OnShowProgress);
    connect(this, &BrowseRepair::EnableProgressBar, this, &BrowseRepair::OnEnableProgressBar);
}

void BrowseRepair::orderFocus()
{
    const QList<QWidget *> first{pDropButton,
                                 pFileList,
                                 ui->checkBox1,
                                 ui->AddFilesBtn,
                                 ui->RemovFileBtn,
                                 m_listTools->removeFile,
                                 m_listTools->removeTicked,
                                 m_deepBox,
                                 ui->StartRepairFilesBtn,
                                 ui->UpdateBtn,
                                 ui->HelpBtn,
                                 ui->MiniMaBtn_2,
                                 ui->closeBtn_2,
                                 pMoreToolsBtn};
    QList<QWidget *> second = m_summary->stops();
    second << QList<QWidget *>{pResultTree,
                               ui->graphicsView,
                               m_details,
                               m_details->sampleLink(),
                               ui->checkBox1_2,
                               ui->checkBox3,
                               m_secondTry->offer(),
                               ui->StopRepairProcessBtn_2,
                               ui->SaveRepairBtn_2,
                               ui->BackBtn_2,
                               ui->UpdateBtn_2,
                               ui->HelpBtn_1,
                               ui->MiniMaBtn,
                               ui->closeBtn};
    for (const QList<QWidget *> &page : {first, second})
        for (int i = 1; i < page.size(); ++i) setTabOrder(page[i - 1], page[i]);
}

void BrowseRepair::mousePressEvent(QMouseEvent *event)
{
    if (!m_move.press(event)) QWidget::mousePressEvent(event);
}

void BrowseRepair::mouseMoveEvent(QMouseEvent *event)
{
    if (!m_move.move(event)) QWidget::mouseMoveEvent(event);
}

void BrowseRepair::mouseReleaseEvent(QMouseEvent *event)
{
    if (!m_move.release(event)) QWidget::mouseReleaseEvent(event);
}

void BrowseRepair::MinimiseWin()
{
    showMinimized();
}
