// Opens the results in the panel of the preview helper, which shows them in full.
#pragma once

#include "window/ThreadPreview.h"

#include <QObject>
#include <QStringList>

class QGraphicsView;
class QTreeWidget;
class QTreeWidgetItem;

/// A double-click on a row or on the preview, Return on the preview, and F11 on the page open it.
class PanelOpener : public QObject
{
    Q_OBJECT

public:
    /// `results` and `preview`, which shows the current row, lie on `page`, which owns this object.
    PanelOpener(QTreeWidget *results, QGraphicsView *preview, QWidget *page);
    /// Waits for a helper that is just being started; one that runs stays.
    ~PanelOpener() override;

    /// Hands all results that are seen over to the helper, which begins with the one of `row`; of a source with its first
    /// one. A panel that is open goes. Does nothing where the row has no result or no helper is there.
    void open(const QTreeWidgetItem *row);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void openCurrent();
    void retranslate();
    void GetQuickLookProcessID();

    QTreeWidget *m_results;
    QGraphicsView *m_preview;
    ThreadPreview m_thread;
    QList<unsigned int> lstHelperPids;
    QStringList lstPreviewFiles;
};
