#pragma once

#include "TClientDataSet.h"
#include "TnfeProc.h"

#include <QDate>
#include <QHash>
#include <QString>

#include <memory>

class TConexaoSQL;

// An XML item's taxes and expenses under the destination's column names (OUTRAS, FRETE, CST,
// CFOP, NCM, PIPI, ..., TRIB_ICMS_VFCPST): money as Money, rates as double, codes as int.
QHash<QString, QVariant> TributosDoItem(const TItem &item);

// One row of the notes-of-origin grid: a document read from XML.
struct TNotaOrigem
{
    qint64 numero = 0;
    QDate emissao;
    Money valor;
    QString chave;
};

// What the import-items dialog holds, without widgets: the documents read, the notes of origin,
// the origin items (one row per item of every document, the product looked up for the supplier)
// and the destination items (one row per origin row with a quantity, its money in proportion).
// The headless listing uses the same rows.
class TImportItensDados final
{
public:
    static inline const QString NaoLocalizado = QStringLiteral("<NÃO LOCALIZADO>");

    // The products are looked up for `fornecCod` (0: only codes valid for every supplier).
    TImportItensDados(TConexaoSQL &conexao, int fornecCod);
    ~TImportItensDados();

    // Each document's products looked up for the supplier whose CNPJ or CPF is its issuer,
    // instead of the one given.
    void SetFornecPeloEmitente(bool sim) { m_fornecPeloEmitente = sim; }

    TnfeProcList &Documentos() { return m_documentos; }
    void AdicionarDocumento(std::unique_ptr<TnfeProc> documento);
    const QList<TNotaOrigem> &NotasOrigem() const { return m_notas; }

    TClientDataSet &Origem() { return m_origem; }
    TClientDataSet &Destino() { return m_destino; }

    // Rebuilds the notes of origin and the origin items from the documents; every qtd_dev is 0.
    // False when a product look-up failed on the database; Erro() names it.
    bool PreencherItensOrigem();
    // Rebuilds the destination items from the origin rows whose qtd_dev is above 0.
    void PreencherItensDestino();
    // Every qtd_dev to 0 / every row with a product to its whole quantity; then the destination.
    void ZerarQtds();
    void QtdsMax();

    // Whether the origin row (0-based) is tied to a product of the system.
    bool TemProduto(int linha) const;
    // Sets the row's qtd_dev, kept between 0 and qtd_orig, and rebuilds the destination. False
    // (and nothing changes) for a row without a product.
    bool SetQtdDev(int linha, double qtd);

    QString Erro() const { return m_erro; }

private:
    void CriarCamposOrigem();
    void CriarCamposDestino();
    void AdicionarItens(const TnfeProc &documento, int fornecCod);
    void DefinirQtdsDev(bool maximo);

    TConexaoSQL &m_conexao;
    int m_fornecCod;
    bool m_fornecPeloEmitente = false;
    TnfeProcList m_documentos;
    QList<TNotaOrigem> m_notas;
    TClientDataSet m_origem;
    TClientDataSet m_destino;
    QString m_erro;
};
