#pragma once

#include <QList>
#include <QStringList>

// A grid of texts without widgets, as a screen's grid shows it: row 0 holds the column titles,
// the other rows the lines. A screen shows it and a console prints it from the same cells.
class TStringGrid final
{
public:
    void SetTitulos(const QStringList &titulos)
    {
        if (m_linhas.isEmpty())
            m_linhas << titulos;
        else
            m_linhas[0] = titulos;
    }
    void AdicionarLinha(const QStringList &linha)
    {
        if (m_linhas.isEmpty())
            m_linhas << QStringList();
        m_linhas << linha;
    }
    // The title row included.
    int RowCount() const { return int(m_linhas.size()); }
    int ColCount() const { return m_linhas.isEmpty() ? 0 : int(m_linhas.first().size()); }
    const QStringList &Row(int linha) const { return m_linhas.at(linha); }
    // "" outside the grid, as an empty cell.
    QString Cells(int coluna, int linha) const
    {
        return linha < RowCount() && coluna < m_linhas.at(linha).size() ? m_linhas.at(linha).at(coluna) : QString();
    }

private:
    QList<QStringList> m_linhas;
};
