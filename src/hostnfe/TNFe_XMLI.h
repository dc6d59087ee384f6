#pragma once

#include "TnfeProc.h"

#include <QString>

// Reads an NF-e file as suppliers send it (nfeProc or bare NFe, layout 4.00) into a TnfeProc.
class TNFe_XMLI final
{
public:
    // Larger files are refused unread: the biggest NF-e the layout allows is far smaller.
    static constexpr qint64 TamanhoMaximo = 50 * 1024 * 1024;
    static constexpr int ProfundidadeMaxima = 64;

    explicit TNFe_XMLI(TnfeProc &nfe) : m_nfe(nfe) {}

    // False when the file cannot be read or is not an NF-e; Erro() then names the file and the
    // fault, and the document is left empty.
    bool ImportarDoArq(const QString &FileName);
    bool ImportarDoTexto(const QByteArray &xml, const QString &nomeParaErro);
    QString Erro() const { return m_erro; }

private:
    TnfeProc &m_nfe;
    QString m_erro;
};
