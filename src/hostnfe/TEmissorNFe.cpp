#include "TEmissorNFe.h"

#include "Contexto.h"
#include "PastaFiscal.h"
#include "TAssinadorNFe.h"
#include "TCertificadoA1.h"
#include "TConexaoSQL.h"
#include "TNFeMontar_DBI.h"
#include "TNFeNumero_DBI.h"
#include "TNFe_XMLW.h"
#include "TValidadorNFe.h"
#include "TnfeProc.h"
#include "Valores.h"

#include <QDir>
#include <QSaveFile>

namespace {

bool Falhar(QString *erro, const QString &texto)
{
    if (erro)
        *erro = texto;
    return false;
}

// The cNF of the note's earlier key when it carries the same number, so that its key stays.
QString CNFAnterior(const QString &chave, qint64 numero)
{
    return chave.size() == 44 && chave.mid(25, 9).toLongLong() == numero ? chave.mid(35, 8) : QString();
}

class TConectado
{
public:
    explicit TConectado(TConexaoSQL &c) : m_c(c), m_ok(c.Conectar()) {}
    ~TConectado() { if (m_ok) m_c.Desconectar(); }
    bool ok() const { return m_ok; }

private:
    TConexaoSQL &m_c;
    bool m_ok;
};

} // namespace

TEmissorNFe::TEmissorNFe(TConexaoSQL &conexao)
    : m_conexao(conexao)
{
}

bool TEmissorNFe::Emitir(int emprCod, int estacaoCod, int compraCod, int finalidade, int tipoCod,
                         const TCertificadoA1 *certificado, TNFeEmitida *emitida, QString *erro,
                         const TOpcoesEmissao &opcoes)
{
    const auto progresso = [&](const char *titulo) {
        if (opcoes.progresso)
            opcoes.progresso(QString::fromUtf8(titulo));
    };
    progresso("Gerando NF-e...");
    const TConectado conectado(m_conexao);
    if (!conectado.ok())
        return Falhar(erro, QStringLiteral("Não foi possivel conectar ao servidor. A NFe não foi gerada"));
    TnfeProc nfe;
    TNFeMontar_DBI montar(m_conexao);
    if (!montar.Carregar(emprCod, estacaoCod, compraCod, finalidade, tipoCod, true, nfe, erro))
        return false;

    std::unique_ptr<TCertificadoA1> aberto;
    if (!certificado) {
        const TOrigemCertificado origem = OrigemCertificado(emprCod);
        if (origem.arquivo.isEmpty())
            return Falhar(erro, MensagemSemCertificado);
        aberto = TCertificadoA1::Abrir(origem.arquivo, origem.senha, erro);
        if (!aberto)
            return false;
        certificado = aberto.get();
    }
    const QString cnpj = nfe.emitente.CNPJ.isEmpty() ? nfe.emitente.CPF : nfe.emitente.CNPJ;
    if (!certificado->Aceitar(cnpj, Contexto::Atual().Agora(), nfe.ide.tpAmb, erro))
        return false;

    const QString chaveNota = QStringLiteral(" where empr_cod=%1 and estacao_cod=%2 and compra_cod=%3")
                                  .arg(emprCod).arg(estacaoCod).arg(compraCod);
    qint64 numero = montar.NumeroAnterior();
    if (numero <= 0) {
        if (!TNFeNumero_DBI::Proximo(m_conexao, emprCod, nfe.ide.serie, &numero, erro))
            return false;
        // Kept at once: a number handed out is never lost, whatever fails afterwards.
        if (!m_conexao.Exec(QStringLiteral("update compra set nfe_num=%1").arg(numero) + chaveNota))
            return Falhar(erro, QStringLiteral("Erro gravando o número %1 da NF-e na nota: %2")
                                    .arg(numero).arg(m_conexao.UltimoErro()));
    }
    if (opcoes.tpEmis != 1) {
        nfe.ide.tpEmis = opcoes.tpEmis;
        nfe.ide.dhCont = opcoes.dhCont.toOffsetFromUtc(nfe.ide.dhEmi.offsetFromUtc());
        nfe.ide.xJust = opcoes.xJust;
    }
    const QString cNF = CNFAnterior(montar.ChaveAnterior(), numero);
    NumeracaoNFe::Numerar(nfe, numero, cNF.isEmpty() ? NumeracaoNFe::NovoCNF(numero) : cNF);

    const QByteArray xml = TNFe_XMLW().Documento(nfe);
    if (!TValidadorNFe::Validar(xml, TValidadorNFe::TEsquema::NFe, erro))
        return false;
    progresso("Assinando...");
    QByteArray assinado;
    if (!TAssinadorNFe::Assinar(xml, QStringLiteral("NFe") + nfe.chave, *certificado, &assinado, erro))
        return false;

    QString erroPasta;
    const QString pasta = PastaFiscal(&erroPasta);
    if (pasta.isEmpty())
        return Falhar(erro, erroPasta);
    const QString destino = pasta + QStringLiteral("NFe_Said/") + nfe.ide.dhEmi.toString(QStringLiteral("yyyy/MM"));
    const QString arquivo = destino + u'/' + nfe.chave + QStringLiteral("-nfe.xml");
    QSaveFile f(arquivo);
    if (!QDir().mkpath(destino) || !f.open(QIODevice::WriteOnly) || f.write(assinado) != assinado.size() || !f.commit())
        return Falhar(erro, QStringLiteral("Não foi possível gravar o arquivo %1: %2").arg(arquivo, f.errorString()));
    if (!m_conexao.Exec(QStringLiteral("update compra set nfe_num=%1, nfe_chave=%2").arg(numero).arg(QuotedStr(nfe.chave))
                        + chaveNota))
        return Falhar(erro, QStringLiteral("Erro gravando a chave da NF-e na nota (o arquivo %1 foi gravado): %2")
                                .arg(arquivo, m_conexao.UltimoErro()));
    if (emitida)
        *emitida = {numero, nfe.chave, arquivo, nfe.ide.dhEmi};
    return true;
}

bool TEmissorNFe::Montar(int emprCod, int estacaoCod, int compraCod, int finalidade, int tipoCod, TnfeProc *nfe,
                         QString *erro)
{
    const TConectado conectado(m_conexao);
    if (!conectado.ok())
        return Falhar(erro, QStringLiteral("Não foi possivel conectar ao servidor. A NFe não foi gerada"));
    TNFeMontar_DBI montar(m_conexao);
    if (!montar.Carregar(emprCod, estacaoCod, compraCod, finalidade, tipoCod, false, *nfe, erro))
        return false;
    const qint64 numero = montar.NumeroAnterior() > 0 ? montar.NumeroAnterior() : 1;
    const QString cNF = CNFAnterior(montar.ChaveAnterior(), numero);
    NumeracaoNFe::Numerar(*nfe, numero, cNF.isEmpty() ? NumeracaoNFe::NovoCNF(numero) : cNF);
    return true;
}

int FinalidadeDoTipo(int tipoCod)
{
    switch (tipoCod) {
    case 35: case 38: case 41: return 4;
    case 39: return 2;
    default: return 1;
    }
}
