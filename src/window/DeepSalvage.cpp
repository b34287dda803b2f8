// Deep salvage in the window: its entry in the menus, where the choice is kept, and its part of a run.
#include "engine/DeepRoad.h"

#include "app/StopFlag.h"
#include "engine/SourceJudge.h"
#include "window/BrowseRepair.h"
#include "window/MyTreeWidget.h"
#include "window/ReportText.h"
#include "window/ResultOrder.h"
#include "window/RowReport.h"
#include "window/ui_BrowseRepairObj.h"

#include <QAction>
#include <QCheckBox>
#include <QSettings>

namespace {

class Preferences : public QSettings
{
public:
    Preferences() : QSettings(QStringLiteral("vorlane"), QStringLiteral("KMPRepairPreferences")) {}
};

const QString kDeepSalvageKey = QStringLiteral("DeepSalvage");

} // namespace

void BrowseRepair::CreateDeepSalvageAction()
{
    pApp->bDeepSalvage = Preferences().value(kDeepSalvageKey, false).toBool();
    m_deepSalvage = new QAction(this);
    m_deepSalvage->setObjectName(QStringLiteral("actionDeepSalvage"));
    m_deepSalvage->setCheckable(true);
    m_deepSalvage->setChecked(pApp->bDeepSalvage);
    connect(m_deepSalvage, &QAction::toggled, this, [](bool on) {
        pApp->bDeepSalvage = on;
        Preferences().setValue(kDeepSalvageKey, on);
    });
    m_deepBox = new QCheckBox(ui->frame);
    m_deepBox->setObjectName(QStringLiteral("deepBox"));
    m_deepBox->setChecked(pApp->bDeepSalvage);
    m_deepBox->hide();
    connect(m_deepBox, &QCheckBox::toggled, m_deepSalvage, &QAction::setChecked);
    connect(m_deepSalvage, &QAction::changed, m_deepBox, [this] {
        m_deepBox->setChecked(m_deepSalvage->isChecked());
        m_deepBox->setEnabled(m_deepSalvage->isEnabled());
    });
}

void BrowseRepair::nameDeepSalvageAction()
{
    const QString tip = tr("Searches damaged JPEG photos more thoroughly. Parts of a salvaged picture may be a guess.");
    m_deepSalvage->setText(tr("&Deep salvage"));
    m_deepSalvage->setToolTip(tip);
    m_deepSalvage->setStatusTip(tip);
    m_deepBox->setText(tr("Deep salvage"));
    m_deepBox->setToolTip(tip);
}

bool BrowseRepair::isSalvaged(const QTreeWidgetItem *row)
{
    return row->data(column::Type, Qt::UserRole).toString() == QLatin1String("Salvaged");
}

void BrowseRepair::salvageRow(DeepRoad &deep, const RunRow &row, int number, FileOutcome &outcome)
{
    bool began = false;
    deep.run(outcome, [&] {
        began = true;
        postToRun([this, name = row.name] { showSalvageStart(name); });
    });
    if (began) {
        postToRun([this, total = m_plan.rows.size()] { ui->progressBar_2->setRange(0, total); });
        postStep(number);
        postProgress(number);
    }
    if (stopRequested()) return;
    // It was looked at, though nothing was left to search for.
    if (deepSalvageMayHelp(row.path, outcome.report)) outcome.report.salvage.ran = true;
    if (salvageText(outcome.report.salvage).isEmpty()) return;
    const OutputRows outputs = makeRows(outcome);
    for (const OutputRow &output : outputs.rows)
        if (output.type == QLatin1String("Salvaged"))
            postToRun([this, row = row.row, output, again = m_plan.again] {
                QTreeWidgetItem *source = sourceRow(row);
                addOutputRow(source, output, true, true);
                if (again) source->child(source->childCount() - 1)->setCheckState(column::Name, Qt::Checked);
            });
    postToRun([this, row = row.row, outcome] { setReport(sourceRow(row), outcome); });
}

void BrowseRepair::trySalvage(const QList<QTreeWidgetItem *> &sources)
{
    if (m_workerBusy || sources.isEmpty()) return; // a stopped worker is about to leave
    m_order->suspend();
    setFlag(pApp->bStopRepair, false);
    RunPlan plan;
    plan.again = true;
    for (const QTreeWidgetItem *source : sources) {
        plan.rows.append({numberOf(source), source->text(column::Name), source->text(column::Path)});
        plan.salvaged.append(*outcomeOf(source));
    }
    startRunAgain(plan);
}

void BrowseRepair::salvageAgain()
{
    if (m_leaving) setFlag(pApp->bStopRepair, true);
    const int total = m_plan.rows.size();
    postToRun([this, total] { showSampleRunStart(total); });
    DeepRoad deep(pApp->mapWorkingNames.keys());
    for (int n = 1; n <= total && !stopRequested(); ++n) {
        postProgress(n);
        postToRun([this, n] { emit SetFileProgressvalue(unsigned(n)); });
        FileOutcome outcome = m_plan.salvaged[n - 1];
        salvageRow(deep, m_plan.rows[n - 1], n, outcome);
    }
    const bool stopped = stopRequested();
    if (stopped) resetRunFields();
    postToRun([this, stopped] { finishRunAgain(stopped); });
}

void BrowseRepair::showSalvageStart(const QString &name)
{
    // The label is not as long as names may be.
    const QString lead = tr("Deep salvage: ");
    const QFontMetrics metrics = ui->label_RepairFileName->fontMetrics();
    const int room = ui->label_RepairFileName->width() - metrics.horizontalAdvance(lead);
    emit ShowProgressLabel(lead + metrics.elidedText(name, Qt::ElideMiddle, room), ui->Percnt_Label->text());
    // Nobody knows how long it takes: the bar moves without an end.
    ui->progressBar_2->setRange(0, 0);
}
