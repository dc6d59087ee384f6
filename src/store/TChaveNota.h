#pragma once

#include <QString>

// The key of a note: company, the station the note was created on, note code. Its staged items,
// their prices and its movements are filed under station 10 whatever the note's own station.
struct TChaveNota
{
    int emprCod = 0;
    int estacaoCod = 0;
    int compraCod = 0;

    bool operator==(const TChaveNota &) const = default;

    // "001-0000345", as the list shows it.
    QString DocStr() const
    {
        return QStringLiteral("%1-%2").arg(emprCod, 3, 10, QLatin1Char('0')).arg(compraCod, 7, 10, QLatin1Char('0'));
    }
};

class TClientDataSet;

// A note of the list as the actions read it: its key and the flags they test.
struct TNotaLinha
{
    TChaveNota chave;
    int tipoCod = 34;
    int fornecCod = 0;
    int destinEmprCod = 0;
    bool baixado = false;
    bool cancelado = false;

    // The current row of a non-empty note list.
    static TNotaLinha DaLinhaAtual(const TClientDataSet &notas);
};
