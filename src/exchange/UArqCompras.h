#pragma once

#include "TCompraExpImp_DBI.h"

#include <QSaveFile>
#include <QString>
#include <QStringList>
#include <QVariant>

#include <functional>

class TQ;

// What an export wrote or an import brought in.
struct TContagemArq
{
    int notas = 0;
    int movimentos = 0;
};

// A value as the file holds it: regional text (decimal comma, "dd/mm/yyyy", "dd/mm/yyyy
// hh:nn:ss" or the date alone at midnight), trimmed; an empty date or date-time "30/12/1899",
// an empty time "00:00:00", otherwise nothing.
QString TextoArq(TLeitorArq leitor, const QVariant &valor);

// Writes the exchange file line by line into a temporary file that replaces the chosen one only
// when Concluir succeeds, so that a failure never leaves half a file. Windows-1252, CR LF.
class TGravadorArqCompras final
{
public:
    explicit TGravadorArqCompras(const QString &arquivo) : m_arquivo(arquivo) {}

    bool Abrir();
    // "C" or "CE", then the current row of `q`, whose columns are those of `colunas`.
    void GravarLinha(const QString &tipo, std::span<const TColunaArq> colunas, const TQ &q);
    bool Concluir();
    // Why Abrir or Concluir failed, naming the file.
    QString Erro() const { return m_erro; }

private:
    QSaveFile m_arquivo;
    QString m_erro;
};

// One "C" or "CE" line as SQL literals, or any other line (tipo empty).
struct TLinhaArq
{
    int numero = 0;                 // 1-based
    QString tipo;
    QStringList literais;
};

// Reads an exchange file: Verificar reads and checks all of it before anything is done with it,
// Percorrer then hands over its lines one by one. UTF-8 (with a BOM, or valid and holding
// multi-byte sequences) or else Windows-1252.
class TLeitorArqCompras final
{
public:
    explicit TLeitorArqCompras(QString arquivo) : m_arquivo(std::move(arquivo)) {}

    // False with the one message in Erro() (file, line, column and what is wrong).
    bool Verificar();
    int Linhas() const { return m_linhas; }
    // After Verificar; false when `aCada` answers false or the file can no longer be read.
    bool Percorrer(const std::function<bool(const TLinhaArq &)> &aCada);
    QString Erro() const { return m_erro; }

private:
    bool ler(const std::function<bool(const QByteArray &, int)> &aCada);
    bool converter(const QString &texto, TLinhaArq &linha, bool comLiterais);
    bool recusar(const QString &motivo);

    QString m_arquivo;
    QString m_erro;
    bool m_bom = false;
    bool m_utf8 = false;
    int m_linhas = 0;
    TContagemArq m_contagem;
};
