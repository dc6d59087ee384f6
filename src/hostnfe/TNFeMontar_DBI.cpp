#include "TNFeMontar_DBI.h"

#include "ChaveNFe.h"
#include "Config.h"
#include "Contexto.h"
#include "TConexaoSQL.h"
#include "TNFeItens_DBI.h"
#include "TPess_Emit_Carregar_DBI.h"
#include "TTotaisNFe.h"
#include "TnfeProc.h"
#include "Valores.h"

#include <QRandomGenerator>
#include <QRegularExpression>

#ifndef PAVREL_VERSAO
#define PAVREL_VERSAO "0"
#endif

namespace {

QString SemPontuacao(QString t)
{
    return t.remove(QRegularExpression(QStringLiteral("[^0-9A-Za-z]")));
}

double Taxa(TConexaoSQL &conexao, const char *chave, double padrao)
{
    bool ok = false;
    const double v = Config::Valor(conexao, QLatin1String(chave)).replace(u',', u'.').toDouble(&ok);
    return ok ? v : padrao;
}

QString Reais(Money v)
{
    return QStringLiteral("R$ ") + FormatFloat(QStringLiteral("#,###,##0.00"), v);
}

// The modality combo's index: not given, issuer, recipient, third party, no freight.
int ModFrete(const TQCampo &indice)
{
    static const int modalidades[] = {9, 0, 1, 2, 9};
    const int i = indice.AsInteger();
    return indice.IsNull() || i < 0 || i > 4 ? 9 : modalidades[i];
}

} // namespace

bool TNFeMontar_DBI::Carregar(int emprCod, int estacaoCod, int compraCod, int finalidade, int tipoCod, bool emissao,
                              TnfeProc &nfe, QString *erro)
{
    nfe = TnfeProc{};
    nfe.versao = QStringLiteral("4.00");
    if (!CarregarNota(emprCod, estacaoCod, compraCod, finalidade, tipoCod, emissao, nfe, erro)
        || !CarregarEmitente(emprCod, nfe, erro))
        return false;
    if (m_fornecCod > 0) {
        if (!CarregarDestinatario(m_fornecCod, nfe, erro))
            return false;
    } else if (tipoCod != 39) {
        if (erro)
            *erro = QStringLiteral("O campo 'Nome' do cliente está em branco. Corrija e tente novamente");
        return false;
    }
    TNFeItens_DBI::TRegras regras;
    regras.CRT = nfe.emitente.CRT;
    regras.finNFe = finalidade;
    regras.pCBS = Taxa(m_conexao, "NFE_ALIQ_CBS", 0.9);
    regras.pIBSUF = Taxa(m_conexao, "NFE_ALIQ_IBS_UF", 0.1);
    regras.pIBSMun = Taxa(m_conexao, "NFE_ALIQ_IBS_MUN", 0);
    if (!TNFeItens_DBI::Carregar(m_conexao, emprCod, compraCod, regras, nfe, erro))
        return false;
    const QString ufDest = nfe.destinatario.ender.UF;
    if (nfe.ide.idDest != 3)
        nfe.ide.idDest = ufDest.isEmpty() || ufDest == nfe.emitente.ender.UF ? 1 : 2;
    TTotaisNFe::Totalizar(nfe);
    // A complementary note carries only what it adds: its header has nothing to agree with.
    return tipoCod == 39
        || (Conferir(QStringLiteral("total de produtos"), m_totProds, nfe.ICMSTot.vProd, erro)
            && Conferir(QStringLiteral("valor total"), m_tot, TTotaisNFe::TotalDaNota(nfe.ICMSTot, m_somarIPI), erro));
}

bool TNFeMontar_DBI::Conferir(const QString &total, const QString &daNota, Money dosItens, QString *erro)
{
    const Money nota = Money::parse(daNota).value_or(Money()).roundTo(2);
    if ((nota - dosItens).abs() <= Money::fromRaw(100))
        return true;
    if (erro)
        *erro = QStringLiteral("O %1 da nota (%2) não confere com a soma dos itens (%3). Corrija e tente novamente")
                    .arg(total, Reais(nota), Reais(dosItens));
    return false;
}

bool TNFeMontar_DBI::CarregarNota(int emprCod, int estacaoCod, int compraCod, int finalidade, int tipoCod,
                                  bool emissao, TnfeProc &nfe, QString *erro)
{
    const auto falhar = [&](const QString &texto) {
        if (erro)
            *erro = texto;
        return false;
    };
    if (tipoCod == 34)
        return falhar(QStringLiteral("Não pode ser enviada NFe referente a uma ENTRADA"));
    if (tipoCod == 37)
        return falhar(QStringLiteral("Não pode ser enviada NFe referente a uma NOTA DE PRODUÇÃO"));
    const auto q = m_conexao.Ab(
        QStringLiteral("select cancelado, nfe_protocolo, nfe_num, nfe_chave, fornec_cod, transp_fornec_cod, tot_prods, tot,\r\n"
                       "nat_op_str, serie, dth_sai, frete_modalidade, frete_vei_placa, frete_vei_uf, frete_vei_antt,\r\n"
                       "frete_reboque1_placa, frete_reboque1_uf, frete_reboque1_antt, frete_reboque2_placa,\r\n"
                       "frete_reboque2_uf, frete_reboque2_antt, frete_vols_qtd, frete_vols_especie, frete_vols_marca,\r\n"
                       "frete_vols_num, frete_peso_liq, frete_peso_bruto, inf_adic_fisco, inf_adic_contribuinte,\r\n"
                       "nfe_chave_ref, nfe_chave_ref2, nfe_chave_ref3, nfe_chave_ref4, nfe_chave_ref5\r\n"
                       "from compra where empr_cod=%1 and estacao_cod=%2 and compra_cod=%3")
            .arg(emprCod).arg(estacaoCod).arg(compraCod));
    if (!q)
        return falhar(QStringLiteral("Erro lendo a nota %1: %2").arg(compraCod).arg(m_conexao.UltimoErro()));
    if (q->IsEmpty())
        return falhar(QStringLiteral("A nota %1 não existe").arg(compraCod));
    const auto campo = [&](const char *c) { return q->FieldByName(QLatin1String(c)); };
    const auto texto = [&](const char *c) { return campo(c).AsString().trimmed(); };
    if (emissao && texto("cancelado") == QLatin1String("S"))
        return falhar(QStringLiteral("Esta venda foi cancelada. Não é possivel gerar o NFe"));
    if (emissao && !texto("nfe_protocolo").isEmpty())
        return falhar(QStringLiteral("Esta venda já possui Protocolo NFE. Não pode mais ser enviada"));

    TNFeIde &ide = nfe.ide;
    for (const char *c : {"nfe_chave_ref", "nfe_chave_ref2", "nfe_chave_ref3", "nfe_chave_ref4", "nfe_chave_ref5"}) {
        const QString chave = texto(c);
        if (chave.isEmpty())
            continue;
        if (!ChaveNFe::DigitoConfere(chave))
            return falhar(QStringLiteral("A chave referenciada %1 não confere. Corrija as chaves referenciadas da nota e "
                                         "tente novamente").arg(chave));
        ide.refNFe << chave;
    }
    if ((finalidade == 2 || finalidade == 4) && ide.refNFe.isEmpty())
        return falhar(QStringLiteral("Indique a chave da NF-e referenciada nas chaves referenciadas da nota e tente "
                                     "novamente"));
    m_numeroAnterior = campo("nfe_num").AsInt64();
    m_chaveAnterior = texto("nfe_chave");
    m_fornecCod = campo("fornec_cod").AsInteger();
    m_transpCod = campo("transp_fornec_cod").AsInteger();
    m_totProds = texto("tot_prods");
    m_tot = texto("tot");
    m_somarIPI = Config::LigadoSalvoN(m_conexao, QStringLiteral("REP_IPI_SOMAR"));

    ide.natOp = texto("nat_op_str").left(60);
    if (ide.natOp.isEmpty())
        return falhar(QStringLiteral("A Natureza da Operação é obrigatória para Devoluçoes e Simples Remessas"));
    ide.serie = qMax(0, texto("serie").toInt());
    const QDateTime agora = Contexto::Atual().Agora();
    ide.dhEmi = agora.toOffsetFromUtc(agora.offsetFromUtc());
    const QDateTime saida = campo("dth_sai").AsDateTime();
    if (saida.isValid() && saida >= agora)
        ide.dhSaiEnt = saida.toOffsetFromUtc(agora.offsetFromUtc());
    ide.tpImp = 1;
    ide.tpEmis = 1;
    ide.tpAmb = Config::Valor(m_conexao, QStringLiteral("NFE_AMBIENTE")) == QLatin1String("1") ? 1 : 2;
    ide.finNFe = finalidade;
    ide.indPres = finalidade == 1 ? 9 : 0;
    ide.procEmi = 0;
    ide.verProc = QStringLiteral("Pavrel " PAVREL_VERSAO);

    TNFeTransp &t = nfe.transp;
    t.modFrete = ModFrete(campo("frete_modalidade"));
    t.placa = SemPontuacao(texto("frete_vei_placa")).toUpper();
    t.UFVeic = texto("frete_vei_uf");
    t.RNTC = texto("frete_vei_antt");
    for (const char *r : {"frete_reboque1_", "frete_reboque2_"}) {
        const QString placa = SemPontuacao(texto((QByteArray(r) + "placa").constData())).toUpper();
        if (!placa.isEmpty())
            t.reboque << TNFeReboque{placa, texto((QByteArray(r) + "uf").constData()),
                                     texto((QByteArray(r) + "antt").constData())};
    }
    t.qVol = campo("frete_vols_qtd").AsMoney().roundTo(0).toDouble();
    t.esp = texto("frete_vols_especie");
    t.marca = texto("frete_vols_marca");
    t.nVol = texto("frete_vols_num");
    t.pesoL = campo("frete_peso_liq").AsFloat();
    t.pesoB = campo("frete_peso_bruto").AsFloat();
    if (m_transpCod > 0)
        CarregarTransportador(m_transpCod, nfe);
    nfe.infAdFisco = texto("inf_adic_fisco");
    nfe.infCpl = texto("inf_adic_contribuinte");
    return true;
}

bool TNFeMontar_DBI::CarregarEmitente(int emprCod, TnfeProc &nfe, QString *erro)
{
    TPess_Emit &e = nfe.emitente;
    if (!TPess_Emit_Carregar_DBI::Carregar(m_conexao, emprCod, e, erro))
        return false;
    const QString doc = e.CNPJ.isEmpty() ? e.CPF : e.CNPJ;
    const std::pair<QString, const char *> exigidos[] = {
        {e.xNome, "a Razão Social"}, {doc, "o CNPJ"}, {e.IE, "a Inscrição Estatual"}, {e.ender.xLgr, "o Logradouro"},
        {e.ender.nro, "o Número"}, {e.ender.xBairro, "o Bairro"}, {e.ender.xMun, "o Município"}, {e.ender.UF, "a UF"},
        {e.ender.CEP, "o CEP"}, {e.ender.fone, "o Telefone 1"}, {e.ender.cMun, "o Código IBGE do Município"},
        {e.CRT >= 1 && e.CRT <= 4 ? QString::number(e.CRT) : QString(), "o Regime Tributário"},
    };
    for (const auto &[valor, rotulo] : exigidos)
        if (valor.trimmed().isEmpty()) {
            if (erro)
                *erro = QStringLiteral("Em Tabelas, Empresa, indique %1 e tente novamente").arg(QString::fromUtf8(rotulo));
            return false;
        }
    (e.CNPJ.isEmpty() ? e.CPF : e.CNPJ) = SemPontuacao(doc);
    e.IE = SemPontuacao(e.IE);
    e.ender.CEP = SemPontuacao(e.ender.CEP);
    e.ender.fone = SemPontuacao(e.ender.fone);
    e.ender.cPais = QStringLiteral("1058");
    e.ender.xPais = QStringLiteral("BRASIL");
    if (e.IM.isEmpty())
        e.CNAE.clear();              // the layout takes the activity only beside the municipal registration
    nfe.ide.cUF = NumeracaoNFe::CodigoUF(e.ender.UF);
    nfe.ide.cMunFG = e.ender.cMun;
    return true;
}

bool TNFeMontar_DBI::CarregarDestinatario(int fornecCod, TnfeProc &nfe, QString *erro)
{
    const auto q = m_conexao.Ab(QStringLiteral(
        "select\r\nraz as \"Nome\",\r\nc as \"CPF/CNPJ\",\r\nlogr as \"Logradouro\",\r\nnum as \"Número\",\r\n"
        "bai as \"Bairro\",\r\nmun as \"Município\",\r\nuf as \"Estado\",\r\nmun_ibge_cod as \"Código IBGE do Município\",\r\n"
        "cep as \"CEP\",\r\nie, compl, fone, email\r\nfrom fornec where fornec_cod=%1").arg(fornecCod));
    if (!q) {
        if (erro)
            *erro = QStringLiteral("Erro lendo o cliente %1: %2").arg(fornecCod).arg(m_conexao.UltimoErro());
        return false;
    }
    const auto texto = [&](int i) { return q->IsEmpty() ? QString() : q->Fields(i).AsString().trimmed(); };
    for (int i = 0; i < 9; ++i)
        if (texto(i).isEmpty()) {
            if (erro)
                *erro = QStringLiteral("O campo '%1' do cliente está em branco. Corrija e tente novamente").arg(q->FieldName(i));
            return false;
        }
    TPess_Dest &d = nfe.destinatario;
    const QString doc = SemPontuacao(texto(1));
    (doc.size() == 11 ? d.CPF : d.CNPJ) = doc;
    d.xNome = nfe.ide.tpAmb == 2 ? QStringLiteral("NF-E EMITIDA EM AMBIENTE DE HOMOLOGACAO - SEM VALOR FISCAL") : texto(0).left(60);
    const QString ie = SemPontuacao(texto(9)).toUpper();
    d.indIEDest = ie.isEmpty() ? 9 : ie == QLatin1String("ISENTO") ? 2 : 1;
    d.IE = d.indIEDest == 1 ? ie : QString();
    d.email = texto(12);
    d.ender = {texto(2), texto(3), texto(10), texto(4), texto(7), texto(5), texto(6).toUpper(), SemPontuacao(texto(8)),
               QStringLiteral("1058"), QStringLiteral("BRASIL"), SemPontuacao(texto(11))};
    if (d.ender.fone.size() < 6)
        d.ender.fone.clear();
    nfe.ide.indFinal = d.indIEDest == 9 ? 1 : 0;
    return true;
}

void TNFeMontar_DBI::CarregarTransportador(int fornecCod, TnfeProc &nfe)
{
    const auto q = m_conexao.Ab(QStringLiteral("select raz, c, ie, logr, num, mun, uf from fornec where fornec_cod=%1").arg(fornecCod));
    if (!q || q->IsEmpty())
        return;
    const auto texto = [&](const char *c) { return q->FieldByName(QLatin1String(c)).AsString().trimmed(); };
    TNFeTransp &t = nfe.transp;
    const QString doc = SemPontuacao(texto("c"));
    (doc.size() == 11 ? t.CPF : t.CNPJ) = doc;
    t.xNome = texto("raz").left(60);
    const QString ie = SemPontuacao(texto("ie")).toUpper();
    t.IE = ie == QLatin1String("ISENTO") ? QString() : ie;
    t.xEnder = QStringList{texto("logr"), texto("num")}.join(QStringLiteral(", ")).left(60);
    t.xMun = texto("mun");
    t.UF = texto("uf").toUpper();
}

namespace NumeracaoNFe {

QString CodigoUF(const QString &uf)
{
    static const QHash<QString, QString> codigos{
        {"RO", "11"}, {"AC", "12"}, {"AM", "13"}, {"RR", "14"}, {"PA", "15"}, {"AP", "16"}, {"TO", "17"},
        {"MA", "21"}, {"PI", "22"}, {"CE", "23"}, {"RN", "24"}, {"PB", "25"}, {"PE", "26"}, {"AL", "27"},
        {"SE", "28"}, {"BA", "29"}, {"MG", "31"}, {"ES", "32"}, {"RJ", "33"}, {"SP", "35"}, {"PR", "41"},
        {"SC", "42"}, {"RS", "43"}, {"MS", "50"}, {"MT", "51"}, {"GO", "52"}, {"DF", "53"}};
    return codigos.value(uf.trimmed().toUpper());
}

QString NovoCNF(qint64 nNF)
{
    const auto trivial = [](const QString &c) {
        bool igual = true, sobe = true, desce = true;
        for (int i = 1; i < c.size(); ++i) {
            const int passo = c[i].digitValue() - c[i - 1].digitValue();
            igual = igual && passo == 0;
            sobe = sobe && passo == 1;
            desce = desce && passo == -1;
        }
        return igual || sobe || desce;
    };
    const QString numero = QString::number(nNF % 100000000).rightJustified(8, QLatin1Char('0'));
    for (;;) {
        const QString c = QString::number(QRandomGenerator::system()->bounded(100000000)).rightJustified(8, QLatin1Char('0'));
        if (c != numero && !trivial(c))
            return c;
    }
}

void Numerar(TnfeProc &nfe, qint64 numero, const QString &cNF)
{
    TNFeIde &ide = nfe.ide;
    ide.nNF = numero;
    ide.cNF = cNF;
    const QString doc = nfe.emitente.CNPJ.isEmpty() ? nfe.emitente.CPF : nfe.emitente.CNPJ;
    const QString chave43 = ide.cUF + ide.dhEmi.toString(QStringLiteral("yyMM")) + doc.rightJustified(14, QLatin1Char('0'))
        + QString::number(ide.mod) + QString::number(ide.serie).rightJustified(3, QLatin1Char('0'))
        + QString::number(numero).rightJustified(9, QLatin1Char('0')) + QString::number(ide.tpEmis) + cNF;
    nfe.chave = chave43 + ChaveNFe::Digito(chave43);
    ide.cDV = nfe.chave.back().digitValue();
}

} // namespace NumeracaoNFe
