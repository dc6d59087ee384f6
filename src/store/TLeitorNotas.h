#pragma once

#include <QHash>
#include <QString>

#include <optional>
#include <vector>

class TClientDataSet;
class TConexaoSQL;
class TField;
class TQ;

// Fills list rows from the rows of a note statement: the columns copied as they come (money
// arrives as decimal text, which the field parses exactly) and the ones derived from them.
// Columns and fields are looked up once, not per row.
class TLeitorNotas final
{
public:
    TLeitorNotas(const TQ &q, TClientDataSet &notas, TConexaoSQL &conexao);

    QString TipoLido() const;
    // Whether the note came from a supplier's XML file.
    bool Xml() const;

    // The current row of the statement into the current list row, in edit or insert state; the
    // error text when the destination companies cannot be read.
    QString Preencher();

private:
    int coluna(const char *nome) const;

    struct Copia
    {
        int coluna;
        TField *campo;
    };
    const TQ &m_q;
    TConexaoSQL &m_conexao;
    const int m_tipo, m_empr, m_compra, m_baixado, m_cancelado, m_xml, m_destin;
    TField &fTipoCod, &fBaixado, &fCancelado, &fTipoDocStr, &fDocStr, &fBaixadoStr, &fCanceladoStr, &fDocOrigStr,
        &fDestinEmprRaz;
    std::vector<Copia> m_copias;
    // Company names are read once, and only when some note has a destination.
    std::optional<QHash<int, QString>> m_empresas;
};

