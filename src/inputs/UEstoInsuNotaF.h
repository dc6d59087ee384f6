#pragma once

#include "TGradeImprF.h"

#include <QDate>

class TConexaoSQL;

// "Insumos da nota": the inputs the saved items of a note consume, summed per input product.
class TEstoInsuNotaF final : public TGradeImprF
{
    Q_OBJECT

public:
    explicit TEstoInsuNotaF(QWidget *pai = nullptr) : TGradeImprF(pai) {}

    // Shows the screen modally. Items that cannot be read show an empty list.
    static void Abrir(int emprCod, int compraCod, const QDate &dtDoc, TConexaoSQL &conexao, QWidget *pai = nullptr);
    static TGradeImpr Conteudo(int emprCod, int compraCod, const QDate &dtDoc, TConexaoSQL &conexao);
    // "Nota: 001-000042   Data: 10/11/26", the first line of both screens' header.
    static QString LinhaDaNota(int emprCod, int compraCod, const QDate &dtDoc);
};
