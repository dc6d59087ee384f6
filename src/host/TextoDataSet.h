#pragma once

#include <QString>

class TClientDataSet;
class TStringGrid;

// The rows of a dataset as a grid shows them, as text for a console or the clipboard: one line
// with the captions of the visible fields, then one line per row, the display texts separated by
// tabs. No field may then hold a tab, a line break or any other control character (an escape
// sequence would rewrite a terminal): each shows as a blank.
QString TextoTabulado(const TClientDataSet &dataSet);
// The same for a grid of texts: its title row, then its lines.
QString TextoTabulado(const TStringGrid &grade);
