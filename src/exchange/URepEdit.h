#pragma once

#include <QString>

class QWidget;
class TConexaoSQL;

// Edits the additional information of one note: reads both texts, proposes the company's
// defaults for a text still empty, asks, and writes both back. Each step connects for itself and
// says what failed; the first that fails or is cancelled ends it with nothing written.
class TRepEdit final
{
public:
    // The dialog shows `titulo` as its caption.
    static bool Editar(int empresa, int estacao, int compra, TConexaoSQL &conexao, const QString &titulo = {},
                       QWidget *pai = nullptr);

    static bool LerCompra(int empresa, int estacao, int compra, TConexaoSQL &conexao, QString &contribuinte,
                          QString &fisco);
    // Only a text that is still empty takes the default.
    static bool LerConfig(TConexaoSQL &conexao, QString &contribuinte, QString &fisco);
    // True on OK, with the texts as edited.
    static bool Perg(QString &contribuinte, QString &fisco, const QString &titulo = {}, QWidget *pai = nullptr);
    static bool GravarCompra(int empresa, int estacao, int compra, TConexaoSQL &conexao, const QString &contribuinte,
                             const QString &fisco);
};
