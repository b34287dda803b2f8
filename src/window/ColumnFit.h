// The widths of a list's columns.
#pragma once

class QTreeWidget;

/// Makes each column that is seen as wide as the words above it ask for, and gives the column `giver` what the others leave
/// of the list, or `least` pixels: no bar is wanted to reach the last one, whether or not there is one for the rows.
void fitColumns(QTreeWidget *list, int giver, int least);
