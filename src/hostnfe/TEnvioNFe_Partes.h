#pragma once

#include "TCertificadoA1.h"
#include "TEnvioNFe.h"
#include "TEventoNFe.h"
#include "TServicosNFe.h"

#include <QByteArray>
#include <QString>

#include <memory>

class TConexaoSQL;

// An event the authority registered, filed beside the note's XML.
struct TEventoRegistrado
{
    QString nProt, arquivo;
    QDateTime dhRegEvento;
};

// What TEnvioNFe keeps between its calls: the company, its certificate and the services.
struct TEnvioNFe::Dados
{
    Dados(TConexaoSQL &c, int e, TTransporteNFe *t) : conexao(c), empr(e), transporte(t) {}

    // The company's state, CNPJ, environment, certificate and services, once; false with erro.
    bool Preparar(QString *erro);
    void Progresso(const QString &titulo) const;
    void Guardar(int cStat, const QString &xMotivo) { retorno = {cStat, xMotivo}; }
    // Where the authority keeps a key: its tpEmis says contingency (6 SVC-AN, 7 SVC-RS) or the state's.
    QString AutorizadorDaChave(const QString &chave) const;
    QString CodigoUF() const;
    qint64 NovoLote() const;
    // Signs and sends the event; a duplicate (573) takes the one the authority holds. False with
    // erro: `rejeitado` begins a rejection's message.
    bool RegistrarEvento(TPedidoEvento pedido, const QString &rejeitado, TEventoRegistrado *registrado, QString *erro);

    TConexaoSQL &conexao;
    int empr;
    TTransporteNFe *transporte;
    std::unique_ptr<TTransporteNFe> transporteProprio;
    std::unique_ptr<TCertificadoA1> certificado;
    std::unique_ptr<TServicosNFe> servicos;
    QString uf, cnpj;
    int tpAmb = 2;
    TProgresso progresso;
    TRetornoNFe retorno;
};

namespace EnvioNFe {

// <fiscal>/NFe_Said/yyyy/MM/ of an issued key (its yyMM); empty with erro.
QString PastaDaChave(const QString &chave, QString *erro);
// The procEventoNFe file of an event beside the note's XML.
QString ArquivoEvento(const QString &pasta, const QString &chave, int tpEvento, int seq);
// Whole or not at all; false with erro naming the file.
bool Gravar(const QString &arquivo, const QByteArray &bytes, QString *erro);
bool Ler(const QString &arquivo, QByteArray *bytes, QString *erro);
// The text of the first element `nome`, inside an element `dentroDe` when given.
QString Folha(const QByteArray &xml, const QString &nome, const QString &dentroDe = {});
// What failed on the wire, or an answer without a code.
QString FalhaComunicacao(const TRetornoSefaz &r);
bool Falhar(QString *erro, const QString &texto);

} // namespace EnvioNFe
