#pragma once

#include "TChaveNota.h"

#include <QList>
#include <QString>

#include <optional>

class TConexaoSQL;

// A note of the company that already uses an access key.
struct TNotaDaChave
{
    TChaveNota chave;
    bool importada = false;   // its items came from that key's XML; otherwise it refers to it
};

// What the database knows about a supplier's NF-e before its items are imported. A failed
// statement gives nullopt (or 0), with the driver's text in Erro().
class TNfeChaveUsoDBI final
{
public:
    explicit TNfeChaveUsoDBI(TConexaoSQL &conexao) : m_conexao(conexao) {}

    // The company's CNPJ as registered (empty when it has none).
    std::optional<QString> CnpjEmpresa(int emprCod);
    // The company's notes, cancelled ones left out, that refer to the key in one of their five
    // reference keys or whose stored XML holds it; `exceto` (the note being typed) is not one.
    std::optional<QList<TNotaDaChave>> NotasComChave(int emprCod, const QString &chave, const TChaveNota &exceto = {});
    // The supplier registered with that CNPJ or CPF; 0 when none (Erro() tells a failure apart).
    int FornecDoDocumento(const QString &cnpjCpf);

    QString Erro() const { return m_erro; }

private:
    TConexaoSQL &m_conexao;
    QString m_erro;
};
