#include "UNFeAcoes.h"

#include "Dialogos.h"
#include "SincPorArq.h"
#include "TClientDataSet.h"
#include "TConexaoSQL.h"
#include "TNFeAcoes_DBI.h"
#include "TPess_Emit_Carregar_DBI.h"
#include "TProgresso.h"
#include "TnfeProc.h"
#include "TRepD.h"
#include "UKelNfeEnviaNFE.h"
#include "UTipoDoc.h"
#include "Valores.h"

#include <QScopeGuard>

#include <utility>

namespace UNFeAcoes {

namespace {

// The library's progress captions go to the host's progress window, closed when the call ends.
TProgressFormPegarTit Progresso()
{
    return [](const QString &titulo) { TProgresso::Janela().Exibir(titulo, 0); };
}

// The lock that keeps two workstations from one NF-e action at once (40 s of waiting). nullptr
// when it was not taken: silently when another holds it, with a message when the database failed.
std::unique_ptr<TSincPorArq> Travar(const QString &nome, const TNotaNFe &nota)
{
    auto trava = SincPorArq_Create(nome, QStringLiteral("NF-e da nota ") + nota.chave.DocStr(), QStringLiteral("TRepF"), 40, false);
    if (trava->Adquirir())
        return trava;
    if (!trava->EmUso())
        MensagemErro(trava->UltimoErro());
    return nullptr;
}

} // namespace

bool EmprAceita(TConexaoSQL &conexao, int emprCod)
{
    TPess_Emit empr;
    QString erro;
    if (!TPess_Emit_Carregar_DBI::Carregar(conexao, emprCod, empr, &erro)) {
        MensagemErro(erro);
        return false;
    }
    const auto falta = [](const char *campo) {
        return QStringLiteral("Em Tabelas, Empresa, indique %1 e tente novamente").arg(QString::fromUtf8(campo));
    };
    const std::pair<QString, QString> campos[] = {
        {empr.xNome, falta("a Razão Social")},
        {empr.CNPJ + empr.CPF, falta("o CNPJ")},
        {empr.IE, falta("a Inscrição Estatual")},
        {empr.ender.xLgr, falta("o Logradouro")},
        {empr.ender.nro, falta("o Número")},
        {empr.ender.xBairro, falta("o Bairro")},
        {empr.ender.xMun, falta("o Município")},
        {empr.ender.UF, falta("a UF")},
        {empr.ender.CEP, falta("o CEP")},
        {empr.ender.fone, falta("o Telefone 1")},
    };
    for (const auto &[valor, mensagem] : campos) {
        if (valor.trimmed().isEmpty()) {
            MensagemInfo(mensagem);
            return false;
        }
    }
    return true;
}

bool NotaAceita(int fornecCod)
{
    TConexaoSQL conexao;
    if (!conexao.Conectar()) {
        MensagemErro(QStringLiteral("Não foi possivel conectar ao servidor. A NFe não foi gerada"));
        return false;
    }
    const auto desconectar = qScopeGuard([&conexao] { conexao.Desconectar(); });
    const std::unique_ptr<TQ> q = TNFeAcoes_DBI::Destinatario(conexao, fornecCod);
    if (!q) {
        MensagemErro(QStringLiteral("Não foi possível ler o cadastro do fornecedor %1.\n%2").arg(fornecCod).arg(conexao.UltimoErro()));
        return false;
    }
    // A supplier missing from its table has every field blank.
    for (int c = 0; c < q->FieldCount(); ++c) {
        if (q->IsEmpty() || q->Fields(c).AsString().trimmed().isEmpty()) {
            MensagemInfo(QStringLiteral("O campo '") + q->FieldName(c) + QStringLiteral("' do cliente está em branco. Corrija e tente novamente"));
            return false;
        }
    }
    return true;
}

bool ItensAceitos()
{
    return true;
}

TNotaNFe TNotaNFe::DaLinhaAtual(const TClientDataSet &notas)
{
    const auto campo = [&notas](const char *nome) -> const TField & { return notas.FieldByName(QLatin1String(nome)); };
    const TNotaLinha linha = TNotaLinha::DaLinhaAtual(notas);
    TNotaNFe n;
    n.chave = linha.chave;
    n.tipoCod = linha.tipoCod;
    n.cancelado = linha.cancelado;
    n.fornecCod = linha.fornecCod;
    n.fornecNomeRed = campo("FORNEC_NOME_RED").AsString();
    n.serie = campo("serie").AsString();
    n.ndoc = campo("NDOC").AsInteger();
    n.dtDoc = campo("DT_DOC").AsDate();
    n.nfeNum = campo("NFE_NUM").AsInteger();
    n.nfeChave = campo("NFE_CHAVE").AsString().trimmed();
    n.nfeProtocolo = campo("NFE_PROTOCOLO").AsString().trimmed();
    n.nfeJustificativa = campo("NFE_JUSTIFICATIVA").AsString();
    return n;
}

bool EnviarNFe(TRepD &repD)
{
    if (repD.Notas().IsEmpty())
        return false;
    const TipoDoc::TTipoDoc *tipo = TipoDoc::PorCodigo(TNotaLinha::DaLinhaAtual(repD.Notas()).tipoCod);
    if (tipo && !tipo->podeEnviarNFe) {
        MensagemErro(QString::fromUtf8(tipo->recusaNFe));
        return false;
    }
    return repD.EnviarNFE();
}

bool CancelarNFe(TConexaoSQL &conexao, TClientDataSet &notas, const TPerguntarJustificativa &perguntar)
{
    if (notas.IsEmpty())
        return false;
    const TNotaNFe nota = TNotaNFe::DaLinhaAtual(notas);
    if (nota.nfeChave.isEmpty()) {
        MensagemInfo(QStringLiteral("Esta nota não possui Chave NFE. Não é possivel enviar cancelamento"));
        return false;
    }
    if (!nota.cancelado) {
        MensagemInfo(QStringLiteral("Esta nota ainda não foi cancelada. Não é possivel enviar cancelamento"));
        return false;
    }
    QString justificativa = nota.nfeJustificativa;
    if (!perguntar(nota.nfeNum, justificativa))
        return false;
    TConexaoSQL propria;
    if (!TNFeAcoes_DBI::GravarJustificativa(propria, nota.chave.emprCod, nota.chave.compraCod, justificativa)) {
        MensagemErro(QStringLiteral("Não foi possível gravar a justificativa do cancelamento da nota %1.\n%2")
                         .arg(nota.chave.DocStr(), propria.UltimoErro()));
        return false;
    }
    notas.Edit();
    notas.FieldByName(QStringLiteral("nfe_justificativa")).SetAsString(justificativa);
    notas.Post();
    if (!EmprAceita(conexao, nota.chave.emprCod))
        return false;
    const auto trava = Travar(QStringLiteral("Retag Compra NFECanc"), nota);
    if (!trava)
        return false;
    const auto fechar = qScopeGuard([] { TProgresso::Janela().Fechar(); });
    QDateTime dthCanc;
    if (!KelNFEEnviaCancNFE(nullptr, conexao, Progresso(), MensagemErro, nota.chave.emprCod, nota.chave.estacaoCod,
                            nota.chave.compraCod, justificativa, 1, dthCanc))
        return false;
    notas.Edit();
    notas.FieldByName(QStringLiteral("nfe_dth_canc")).SetAsDateTime(dthCanc);
    notas.Post();
    return true;
}

bool ReimprimirNFe(TConexaoSQL &conexao, const TClientDataSet &notas)
{
    if (notas.IsEmpty())
        return false;
    const TNotaNFe nota = TNotaNFe::DaLinhaAtual(notas);
    if (nota.cancelado) {
        MensagemInfo(QStringLiteral("Esta venda foi cancelada. Não é possivel reimprimir"));
        return false;
    }
    if (nota.nfeChave.isEmpty()) {
        MensagemInfo(QStringLiteral("Esta venda não possui Chave NFE. Não pode mais ser impressa"));
        return false;
    }
    if (!EmprAceita(conexao, nota.chave.emprCod) || !NotaAceita(nota.fornecCod) || !ItensAceitos())
        return false;
    const auto trava = Travar(QStringLiteral("Retag Compra NFEImpr"), nota);
    if (!trava)
        return false;
    const auto fechar = qScopeGuard([] { TProgresso::Janela().Fechar(); });
    // The library answers nothing: an error it reported is the failure.
    bool falhou = false;
    const TExibirErro exibirErro = [&falhou](const QString &mensagem) {
        falhou = true;
        MensagemErro(mensagem);
    };
    KelNFEEnviarImpr(nullptr, conexao, Progresso(), exibirErro, nota.chave.emprCod, nota.chave.estacaoCod,
                     nota.chave.compraCod, nota.serie, nota.nfeNum, nota.nfeChave, true);
    return !falhou;
}

bool CartaCorrecaoNFe(const TClientDataSet &notas, const TEditarCarta &editar)
{
    if (notas.IsEmpty())
        return false;
    const TNotaNFe nota = TNotaNFe::DaLinhaAtual(notas);
    const TipoDoc::TTipoDoc *tipo = TipoDoc::PorCodigo(nota.tipoCod);
    if (!tipo || !tipo->podeCartaCorrecao) {
        MensagemInfo(QStringLiteral("Opção disponível somente para DEVOLUÇÃO e SIMPLES REMESSA"));
        return false;
    }
    const QString descricao = QStringLiteral("Nota Num:") + QLatin1Char(' ') + QString::number(nota.ndoc) + QLatin1Char(' ')
        + nota.fornecNomeRed + QLatin1Char(' ') + FormatDateTime(QStringLiteral("dd/mm/yy"), nota.dtDoc);
    const auto trava = Travar(QStringLiteral("Retag Compra NfeCorr"), nota);
    if (!trava)
        return false;
    return editar(nota.nfeChave, TipoDoc::TipoDocCharToTDocTipo(TipoDoc::CharDoCodigo(nota.tipoCod)), descricao);
}

} // namespace UNFeAcoes
