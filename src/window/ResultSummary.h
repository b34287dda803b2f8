// The line above the results that counts what came of the files; each part of it shows its files alone.
#pragma once

#include "window/RowReport.h"

#include <QWidget>

#include <array>

class QLabel;
class QPushButton;
class QTreeWidget;

/// Filtering hides source rows and nothing else: ticks stay, and so does what saving takes, for an output below a hidden
/// row isn't hidden itself. While some are hidden, the line says so.
class ResultSummary : public QWidget
{
    Q_OBJECT

public:
    /// Hidden until refresh(); `tree` must outlive it.
    ResultSummary(QTreeWidget *tree, QWidget *page);

    /// Counts the rows anew, shows all of them, and itself.
    void refresh();
    void retranslate();
    /// What the Tab key reaches, in its order.
    QList<QWidget *> stops() const;

signals:
    /// Other rows than before are seen.
    void filtered();

private:
    struct Part
    {
        Found found;
        QPushButton *button;
        int files;
    };

    void filter(int part);
    void nameParts();
    void place();

    QTreeWidget *m_tree;
    QLabel *m_all;
    std::array<Part, 6> m_parts;
    QPushButton *m_showAll;
    QLabel *m_note;
};
