#pragma once

#include "TGradeImprF.h"

#include <QDate>

class TConexaoSQL;

// "Insumos do Item": the inputs one item of a note consumes, per unit and for its quantity.
class TEstoInsuItemF final : public TGradeImprF
{
    Q_OBJECT

public:
    explicit TEstoInsuItemF(QWidget *pai = nullptr) : TGradeImprF(pai) {}

    // Shows the screen modally. A composition that cannot be read shows an empty list.
    static void Abrir(int emprCod, int compraCod, int itemCod, const QDate &dtDoc, int prodCod, const QString &descr,
                      double qtdItem, TConexaoSQL &conexao, QWidget *pai = nullptr);
    // What the screen shows, for the screen, the console and the print-out.
    static TGradeImpr Conteudo(int emprCod, int compraCod, const QDate &dtDoc, int prodCod, const QString &descr,
                               double qtdItem, TConexaoSQL &conexao);
};
