// The file list: taking files in from the dialog, a drop or another start of the program, checks, removal.
#include "app/KesmiraApp.h"
#include "desktop/FileChooser.h"
#include "desktop/Look.h"
#include "dialogs/MessageBox.h"
#include "window/BrowseRepair.h"
#include "window/ColumnFit.h"
#include "window/DrgDrp.h"
#include "window/KindIcon.h"
#include "window/ListRow.h"
#include "window/ListTools.h"
#include "window/ui_BrowseRepairObj.h"

#include <QCheckBox>
#include <QCoreApplication>
#include <QDateTime>
#include <QElapsedTimer>
#include <QFileInfo>
#include <QHeaderView>
#include <QScopedValueRollback>
#include <QSet>

namespace {

constexpr int kLeastPath = 60; ///< pixels; the whole one is in its tool tip

const QStringList &dialogSuffixes()
{
    static const QStringList suffixes{"JPG", "JPEG", "NRW", "CR2", "ARW", "DNG",  "ERF", "MRW", "NEF", "ORF", "PEF",
                                      "RW2", "SR2",  "SRF", "RAF", "raf", "TIFF", "TIF", "CRW", "CR3", "HEIC"};
    return suffixes;
}

const QStringList &dropSuffixes()
{
    static const QStringList suffixes{"jpg", "jpeg", "JPG", "JPEG"};
    return suffixes;
}

QString dateText(const QDateTime &date)
{
    return date.toString(QStringLiteral("ddd MMM dd yyyy hh:mm:ss"));
}

int countChecked(const QTreeWidget *list)
{
    int checked = 0;
    for (int i = 0; i < list->topLevelItemCount(); ++i)
        if (list->topLevelItem(i)->checkState(Name) == Qt::Checked) ++checked;
    return checked;
}

} // namespace

void BrowseRepair::AddFilesProcess()
{
    if (m_takingFiles) return;
    lstPendingPaths = fileChooser().openFiles(
        this, tr("Select one or more files to open"), QStringLiteral("/home"),
        tr("Images")
            + QStringLiteral(" (*.jpg *.jpeg *.JPEG *.JPG *.NRW *.nrw *.cr2 *.CR2  *.CR3 *.cr3 *.ARW *.arw *.DNG *.dng "
                             "*.ERF *.erf *.MRW *.mrw *.NEF *.nef *.ORF *.orf *.PEF *.pef *.RW2 *.rw2 *.SR2 *.sr2 "
                             "*.SRF *.SRF *.RAF *.raf *.TIFF *.tiff *.TIF *.tif *.CRW *.crw *.HEIC *.heic)"));
    if (lstPendingPaths.isEmpty()) {
        ui->RemovFileBtn->setEnabled(false);
        if (nFileCount == 0) {
            ui->StartRepairFilesBtn->hide();
            ui->StartRepairFilesBtn->setEnabled(false);
            ui->label_2->setEnabled(false);
        }
        return;
    }
    AddNamedFiles(lstPendingPaths);
}

void BrowseRepair::ComeToFront(const QStringList &paths)
{
    if (isMinimized()) showNormal();
    raise();
    activateWindow();
    m_handedOver += paths;
    if (ui->frame->isVisible()) takeHandedOver();
}

void BrowseRepair::takeHandedOver()
{
    // The list is being filled: who fills it takes them afterwards.
    if (m_takingFiles) return;
    const QStringList paths = m_handedOver;
    m_handedOver.clear();
    AddNamedFiles(paths);
}

void BrowseRepair::AddNamedFiles(const QStringList &paths)
{
    if (m_takingFiles || paths.isEmpty()) return;
    QStringList others;
    for (const QString &path : paths)
        if (!dialogSuffixes().contains(QFileInfo(path).suffix().toUpper())) others << QFileInfo(path).fileName();
    m_listTools->showRefused(tr("Not of a format that can be repaired:"), others);
    if (others.size() == paths.size()) return;
    lstPendingPaths = paths;
    pApp->bFirstScreen = false;
    pApp->bFileListActive = true;
    pDropButton->hide();
    ui->StartRepairFilesBtn->setEnabled(false);
    if (!bListSetUp) {
        setUpList(
            QRect(25, 240, 800, 250),
            [] {
                return ListHeads{tr("  File Name"), tr("  Path"), tr(" Size (KB)"), tr(" Modified Date"),
                                 tr(" Created Date")};
            },
            -1);
        pFileList->setFont(look::font(QStringLiteral("Lucida Grande"), 12));
        setListWidths(90, 165);
    }
    takePaths(paths, dialogSuffixes(), true);
    showFilledList();
    ui->AddFilesBtn->setEnabled(true);
    ui->Add_FilesmainString->hide();
    showListState();
    pApp->bFileListActive = true;
    takeHandedOver();
}

void BrowseRepair::SetItemInTreeWidget(const QStringList &paths)
{
    if (m_takingFiles || !ui->frame->isVisibleTo(this)) return;
    lstPendingPaths = paths;
    m_listTools->showRefused({}, {});
    if (paths.isEmpty()) return;
    pApp->bFirstScreen = false;
    pApp->bFileListActive = true;
    pDropButton->hide();
    ui->StartRepairFilesBtn->setEnabled(false);
    if (!bListSetUp) {
        setUpList(
            QRect(24, 226, 692, 270),
            [] {
                return ListHeads{tr("   File Name"), tr(" Path"), tr(" Size(KB)"), tr("Modified date"),
                                 tr("Created date")};
            },
            Name);
        pFileList->setFont(look::font(QStringLiteral("Helvetica neue Medium"), 13));
        setListWidths(100, 150);
    }
    takePaths(paths, dropSuffixes(), false);
    showFilledList();
    ui->AddFilesBtn->setEnabled(true);
    showListState();
    pApp->bFileListActive = true;
    takeHandedOver();
}

void BrowseRepair::setUpList(const QRect &geometry, ListHeads (*heads)(), int sortColumn)
{
    bListSetUp = true;
    pFileList->pDropArea->hide();
    pFileList->setFocusPolicy(Qt::StrongFocus);
    pFileList->setHeaderHidden(false);
    pFileList->setColumnCount(ListColumns);
    say(pFileList, [this, heads] {
        const ListHeads words = heads();
        pFileList->setHeaderLabels({words.name, words.path, words.size, QStringLiteral("FileID"),
                                    QStringLiteral("ParentID"), QStringLiteral("Status"),
                                    QStringLiteral("TemporaryPath"), words.modified, words.created});
        fitColumns(pFileList, Path, kLeastPath);
    });
    pFileList->setGeometry(geometry);
    pFileList->setFrameStyle(int(QFrame::StyledPanel) | int(QFrame::Sunken));
    pFileList->setAutoFillBackground(true);
    pFileList->setAlternatingRowColors(true);
    pFileList->setTextElideMode(Qt::ElideMiddle);
    pFileList->setUniformRowHeights(true);
    pFileList->setRootIsDecorated(false);
    pFileList->setIconSize(QSize(16, 16));
    for (int column = FileId; column <= TemporaryPath; ++column) pFileList->setColumnHidden(column, true);
    pFileList->header()->setSortIndicator(sortColumn, Qt::AscendingOrder);
    pFileList->setSortingEnabled(true);
}

void BrowseRepair::setListWidths(int size, int date)
{
    pFileList->setColumnWidth(Name, 150);
    pFileList->setColumnWidth(Path, 150);
    pFileList->setColumnWidth(Size, size);
    // A wide substitute of the font must not cost the seconds of a date.
    const QString longest = dateText(QDateTime(QDate(2026, 12, 30), QTime(22, 58, 58)));
    const QFontMetrics metrics(look::font(QStringLiteral("Lucida Grande"), 12, QFont::Normal));
    const int needed = metrics.horizontalAdvance(longest) + 20;
    pFileList->setColumnWidth(Modified, std::max(date, needed));
    pFileList->setColumnWidth(Created, std::max(date, needed));
    fitColumns(pFileList, Path, kLeastPath);
}

void BrowseRepair::takePaths(const QStringList &paths, const QStringList &suffixes, bool withIcon)
{
    const QScopedValueRollback<bool> guard(m_takingFiles, true);
    // Sorting for each row would move the rows about while they are filled.
    const bool sorted = pFileList->isSortingEnabled();
    pFileList->setSortingEnabled(false);
    QSet<QString> known;
    for (int i = 0; i < pFileList->topLevelItemCount(); ++i)
        known.insert(pFileList->topLevelItem(i)->text(Path).toCaseFolded());
    QList<QTreeWidgetItem *> rows; // given to the list some at a time: it is laid out anew for each gift
    QElapsedTimer sinceGift;
    sinceGift.start();
    const auto give = [&] {
        pFileList->addTopLevelItems(rows);
        rows.clear();
        sinceGift.start();
    };
    for (const QString &path : paths) {
        if (sinceGift.elapsed() > 100) give();
        // The window is drawn meanwhile; a click waits until the list is whole.
        QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
        if (known.contains(path.toCaseFolded())) {
            give();
            if (AlreadyAdded(path)) continue;
        }
        pApp->strFileSuffix = QFileInfo(path).suffix();
        const bool taken =
            withIcon ? suffixes.contains(pApp->strFileSuffix.toUpper()) : suffixes.contains(pApp->strFileSuffix);
        if (withIcon && !taken) continue;
        auto *item = new ListRow;
        rows << item;
        if (taken) {
            fillRow(item, path, withIcon);
            known.insert(path.toCaseFolded());
        } else {
            ui->RemovFileBtn->setEnabled(false);
            ui->StartRepairFilesBtn->setEnabled(false);
        }
        ui->AddFilesBtn->setEnabled(false);
    }
    give();
    pFileList->setSortingEnabled(sorted);
}

void BrowseRepair::fillRow(QTreeWidgetItem *item, const QString &path, bool withIcon)
{
    static const QFont nameFont = look::font(QStringLiteral("Lucida Grande"), 12, QFont::Bold);
    static const QFont textFont = look::font(QStringLiteral("Lucida Grande"), 12, QFont::Normal);
    item->setFont(Name, nameFont);
    for (int column = Path; column <= TemporaryPath; ++column) item->setFont(column, textFont);
    for (int column : {Name, Size, FileId, ParentId, SizeInBytes, TemporaryPath})
        item->setSizeHint(column, QSize(18, 18));
    const QFileInfo file(path);
    if (file.isDir()) return; // the row stays without content
    item->setText(Name, file.fileName());
    item->setCheckState(Name, Qt::Checked);
    if (withIcon) item->setIcon(Name, kindIcon(file.suffix()));
    item->setText(Path, path);
    item->setToolTip(Name, path);
    item->setToolTip(Path, path);
    item->setText(Size, GetSizeOfItem(file.size()));
    item->setTextAlignment(Size, Qt::AlignRight | Qt::AlignVCenter);
    item->setText(FileId, QString::number(nFileIdNext));
    item->setText(ParentId, QStringLiteral("1"));
    item->setText(SizeInBytes, QString::number(file.size()));
    item->setText(TemporaryPath, path);
    item->setText(Modified, dateText(file.lastModified()));
    item->setText(Created, dateText(file.birthTime()));
    item->setData(Modified, Qt::UserRole, file.lastModified());
    item->setData(Created, Qt::UserRole, file.birthTime());
    ++nFileIdNext;
    ++nFileCount;
}

void BrowseRepair::showFilledList()
{
    ui->AddFilesBtn->show();
    ui->RemovFileBtn->hide();
    ui->RemovFileBtn->setEnabled(true);
    ui->StartRepairFilesBtn->show();
    ui->StartRepairFilesBtn->setEnabled(true);
    for (QWidget *widget : {static_cast<QWidget *>(ui->checkBox1), static_cast<QWidget *>(ui->label_2)}) {
        widget->show();
        widget->setEnabled(true);
    }
    ui->checkBox1->setCheckState(Qt::Checked);
    m_listTools->setShown(true);
    m_deepBox->show();
    pFileList->setFocus();
}

void BrowseRepair::showDropZone()
{
    bListSetUp = false;
    m_words.erase(pFileList);
    pFileList->setSortingEnabled(false);
    pFileList->setHeaderHidden(true);
    pFileList->setFocusPolicy(Qt::NoFocus);
    pFileList->setGeometry(25, 240, 800, 280);
    pFileList->pDropArea->show();
    for (QWidget *hidden : {static_cast<QWidget *>(ui->AddFilesBtn), static_cast<QWidget *>(ui->StartRepairFilesBtn),
                            static_cast<QWidget *>(ui->checkBox1), static_cast<QWidget *>(ui->label_2),
                            static_cast<QWidget *>(m_deepBox)})
        hidden->hide();
    m_listTools->setShown(false);
    pDropButton->setEnabled(true);
    pDropButton->show();
    pDropButton->setFocus();
    pApp->bFirstScreen = true;
}

void BrowseRepair::showDropRefusal(const DropRefusal &refusal)
{
    m_listTools->showRefused(refusal.folders ? tr("Folders can't be dropped, so nothing was added:")
                                             : tr("Only JPEG files can be dropped; take Add for:"),
                             refusal.names);
}

void BrowseRepair::showListState()
{
    const int all = pFileList->topLevelItemCount();
    const int checked = countChecked(pFileList);
    if (checked == all) {
        ui->checkBox1->setCheckState(Qt::Checked);
    } else if (checked == 0) {
        ui->checkBox1->setCheckState(Qt::Unchecked);
        ui->StartRepairFilesBtn->setEnabled(false);
    } else {
        ui->checkBox1->setCheckState(Qt::PartiallyChecked);
    }
}

bool BrowseRepair::AlreadyAdded(const QString &path)
{
    for (int i = 0; i < pFileList->topLevelItemCount(); ++i) {
        if (pFileList->topLevelItem(i)->text(Path).compare(path, Qt::CaseInsensitive) != 0) continue;
        pMessageBox->setPicture(QStringLiteral(":/res/info.png"));
        pMessageBox->setText(QFileInfo(path).fileName() + '\n' + tr("File name already added to list."));
        pMessageBox->exec();
        return true;
    }
    return false;
}

QString BrowseRepair::GetSizeOfItem(long long bytes)
{
    const double size = double(bytes);
    if (quint64(size / (1 << 30)) != 0) return QStringLiteral("0");
    const auto mebibytes = quint64(size / (1 << 20));
    return QString::number(mebibytes != 0 ? mebibytes * 1024 : quint64(size / 1024));
}

void BrowseRepair::RemoveFrmListProcess()
{
    if (m_takingFiles) return;
    for (int i = pFileList->topLevelItemCount() - 1; i >= 0; --i) {
        QTreeWidgetItem *item = pFileList->topLevelItem(i);
        if (item->checkState(Name) == Qt::Checked) {
            delete pFileList->takeTopLevelItem(i);
            continue;
        }
        for (int child = item->childCount() - 1; child >= 0; --child)
            if (item->child(child)->checkState(Name) == Qt::Checked) delete item->takeChild(child);
        ui->checkBox1->setCheckState(Qt::Unchecked);
    }
    if (pFileList->topLevelItemCount() == 0) {
        ui->checkBox1->setCheckState(Qt::Unchecked);
        ui->checkBox1->setEnabled(false);
        ui->RemovFileBtn->setEnabled(false);
        ui->StartRepairFilesBtn->setEnabled(false);
    }
    if (countChecked(pFileList) == 0) ui->StartRepairFilesBtn->setEnabled(false);
}

void BrowseRepair::RemoveCurrentFile()
{
    if (m_takingFiles || !pFileList->currentItem()) return;
    delete pFileList->currentItem();
    showListState();
    if (pFileList->topLevelItemCount() == 0) showDropZone();
}

void BrowseRepair::RemoveTickedFiles()
{
    RemoveFrmListProcess();
    if (!m_takingFiles && pFileList->topLevelItemCount() == 0) showDropZone();
}

void BrowseRepair::OnRepairItemClicked(QTreeWidgetItem *item, int)
{
    ui->RemovFileBtn->setEnabled(true);
    if (item->checkState(Name) == Qt::PartiallyChecked) return;
    const int checked = countChecked(pFileList);
    const int others = pFileList->topLevelItemCount() - checked;
    ui->checkBox1->setTristate(true);
    ui->checkBox1->setCheckState(checked == 0 ? Qt::Unchecked : others == 0 ? Qt::Checked : Qt::PartiallyChecked);
    ui->StartRepairFilesBtn->setEnabled(checked > 0);
}

void BrowseRepair::OnCheckBoxbtnClicked(bool checked)
{
    if (ui->checkBox1->isTristate()) {
        ui->checkBox1->setTristate(false);
        // In tristate mode a click on a full box gave its half state; what counts is whether anything was ticked.
        ui->checkBox1->setChecked(checked);
    }
    for (int i = 0; i < pFileList->topLevelItemCount(); ++i)
        pFileList->topLevelItem(i)->setCheckState(Name, checked ? Qt::Checked : Qt::Unchecked);
    ui->StartRepairFilesBtn->setEnabled(checked);
}
