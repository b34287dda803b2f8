#include "window/PanelOpener.h"

#include "app/KesmiraApp.h"
#include "desktop/platform/Platform.h"
#include "engine/OneFile.h"
#include "engine/OutputRows.h"
#include "window/RunPlan.h"

#include <QAccessibleWidget>
#include <QEvent>
#include <QGraphicsView>
#include <QKeyEvent>
#include <QShortcut>
#include <QTreeWidget>

namespace {

/// The system takes about two million bytes of arguments and environment together.
constexpr int kMostBytes = 1 << 20;

bool isResult(const QTreeWidgetItem *row)
{
    return row->text(column::Status) == QLatin1String(status::Output);
}

bool isSeen(const QTreeWidgetItem *row)
{
    return !row->isHidden() && (!row->parent() || !row->parent()->isHidden());
}

/// The row itself, of a source its first result that is seen; null if there is none.
const QTreeWidgetItem *resultOf(const QTreeWidgetItem *row)
{
    if (!row || isResult(row)) return row;
    for (int i = 0; i < row->childCount(); ++i)
        if (isResult(row->child(i)) && isSeen(row->child(i))) return row->child(i);
    return nullptr;
}

/// As many files around the one at `at` as a command can be given.
QStringList around(const QStringList &files, int at)
{
    int from = at, to = at, bytes = 0;
    const auto take = [&](int index) {
        if (index < 0 || index >= files.size()) return false;
        bytes += files[index].toUtf8().size() + int(sizeof(char *)) + 1;
        return bytes <= kMostBytes;
    };
    for (bool before = true, after = true; before || after;) {
        after = after && take(to);
        if (after) ++to;
        before = before && take(from - 1);
        if (before) --from;
    }
    return files.mid(from, to - from);
}

/// The toolkit has no role for a view, and without one a screen reader passes it over.
QAccessibleInterface *asPicture(const QString &, QObject *object)
{
    auto *view = qobject_cast<QGraphicsView *>(object);
    return view ? new QAccessibleWidget(view, QAccessible::Graphic) : nullptr;
}

} // namespace

PanelOpener::PanelOpener(QTreeWidget *results, QGraphicsView *preview, QWidget *page)
    : QObject(page), m_results(results), m_preview(preview)
{
    connect(results, &QTreeWidget::itemDoubleClicked, this, [this](QTreeWidgetItem *row) { open(row); });
    auto *key = new QShortcut(Qt::Key_F11, page);
    key->setContext(Qt::WidgetWithChildrenShortcut);
    connect(key, &QShortcut::activated, this, &PanelOpener::openCurrent);
    QAccessible::installFactory(asPicture);
    preview->viewport()->setFocusPolicy(Qt::NoFocus); // one stop is enough; this takes it from both
    preview->setFocusPolicy(Qt::StrongFocus);
    preview->installEventFilter(this);
    preview->viewport()->installEventFilter(this);
    retranslate();
}

PanelOpener::~PanelOpener()
{
    m_thread.wait();
}

void PanelOpener::retranslate()
{
    m_preview->setToolTip(tr("A double-click, Return or F11 shows the result in full."));
}

bool PanelOpener::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::LanguageChange && watched == m_preview) retranslate();
    const bool doubleClick = event->type() == QEvent::MouseButtonDblClick && watched == m_preview->viewport();
    const int key = event->type() == QEvent::KeyPress ? static_cast<QKeyEvent *>(event)->key() : 0;
    const bool enter = watched == m_preview && (key == Qt::Key_Return || key == Qt::Key_Enter);
    if (!doubleClick && !enter) return QObject::eventFilter(watched, event);
    openCurrent();
    return true;
}

void PanelOpener::openCurrent()
{
    open(m_results->currentItem());
}

void PanelOpener::open(const QTreeWidgetItem *row)
{
    const QTreeWidgetItem *shown = resultOf(row);
    if (!shown || !m_results->isEnabled()) return; // in a run the working folder is the worker's
    QStringList files;
    int at = -1;
    for (QTreeWidgetItemIterator it(m_results); *it; ++it) {
        if (*it != shown && !(isResult(*it) && isSeen(*it))) continue;
        const QString path = outputPath((*it)->text(column::Name));
        if (path.isEmpty()) continue;
        if (*it == shown) at = files.size();
        files << path;
    }
    if (at < 0) return;
    const QString file = files[at];
    lstPreviewFiles = around(files, at);
    // One panel at a time: the last one wins. A helper that is just being started is one to end, too.
    m_thread.wait();
    GetQuickLookProcessID();
    for (const unsigned int pid : qAsConst(lstHelperPids)) platform().endPreviewHelper(pid);
    m_thread.SetInitialSettings(pApp->strPreviewHelperPath, file, lstPreviewFiles);
    m_thread.start(QThread::InheritPriority);
}

void PanelOpener::GetQuickLookProcessID()
{
    lstHelperPids = platform().previewHelpers(pApp->strPreviewHelperPath);
}
