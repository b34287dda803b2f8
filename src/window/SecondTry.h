// What can be tried again for the results on view: another sample for one file, deep salvage for those that it may help.
#pragma once

#include <QList>
#include <QObject>

class DetailsPane;
class MyTreeWidget;
class QPushButton;
class QTreeWidgetItem;
class QWidget;

/// The link in the details, the entries of a row's context menu, and the offer of deep salvage under the results.
class SecondTry : public QObject
{
    Q_OBJECT

public:
    /// `tree` and `details` must outlive it; `page`, on which the offer lies, owns it.
    SecondTry(MyTreeWidget *tree, DetailsPane *details, QWidget *page);

    /// Counts anew whom deep salvage may help, and offers it where there is anybody.
    void refresh();
    /// Takes the offer away, as a run begins.
    void hide();
    void retranslate();
    QPushButton *offer() const { return m_offer; }

signals:
    /// Another sample is wanted for a source row.
    void sampleAsked(QTreeWidgetItem *source);
    /// Deep salvage is wanted for these source rows alone.
    void salvageAsked(const QList<QTreeWidgetItem *> &sources);

private:
    QList<QTreeWidgetItem *> salvageable() const;
    void showMenu(QTreeWidgetItem *row, const QPoint &place);

    MyTreeWidget *m_tree;
    QPushButton *m_offer;
};
