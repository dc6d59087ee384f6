// The item panel's controller: finding the product, filling the panel from its master data,
// quantities and sale prices, and the product data written back.
#include "TItemNota.h"
#include "TItemNotaDBI.h"

#include "Contexto.h"
#include "Dialogos.h"
#include "TBuscaProd.h"
#include "TConexD.h"
#include "TConexaoSQL.h"
#include "TItemNotaTela.h"
#include "TItemPanel.h"
#include "TNumEditBR.h"
#include "TProdLista.h"
#include "TRepF_CalculePreco.h"
#include "UProdConsulta.h"
#include "UTipoDoc.h"
#include "Valores.h"

#include <QComboBox>
#include <QLineEdit>
#include <QScopeGuard>
#include <QScopedValueRollback>
#include <QSet>

#include <algorithm>

namespace {

bool SoDigitos(const QString &texto)
{
    return !texto.isEmpty() && std::all_of(texto.begin(), texto.end(), [](QChar c) { return c >= u'0' && c <= u'9'; });
}

QString DigitosNCM(const QLineEdit *ncm)
{
    QString digitos;
    for (const QChar c : ncm->text())
        if (c >= u'0' && c <= u'9')
            digitos.append(c);
    return digitos;
}

void SelecionarCodigo(QComboBox *combo, int codigo)
{
    combo->setCurrentIndex(combo->findData(codigo));
}

} // namespace

void TItemNota::FornecProdCodTestar()
{
    TItemPanel &p = m_panel;
    QString codigo = p.ProdCodDelesLabeledEdit()->text().trimmed();
    // "007" and "7" are the same code of the supplier's.
    if (SoDigitos(codigo) && StrToIntStr(codigo) != QLatin1String("0"))
        codigo = StrToIntStr(codigo);
    p.ProdCodDelesLabeledEdit()->setText(codigo);
    if (codigo.isEmpty()) {
        focar(p.BuscaLabeledEdit());
    } else if (const int prodCod = FornecProdCod(m_conexao, m_tela.FornecCodSelecionado(), codigo)) {
        p.BuscaLabeledEdit()->setText(QString::number(prodCod));
        PreencherProd(prodCod);
    } else {
        focar(p.BuscaLabeledEdit());
        ZerarProd();
    }
    m_prodLista->Esconder();
}

bool TItemNota::Buscar(const QString &texto)
{
    TItemPanel &p = m_panel;
    TBuscaProd busca(m_conexao, emprCod());
    busca.SetModoConexao(m_modoConexao);
    const auto achado = busca.Buscar(texto);
    if (!achado && !busca.Erro().isEmpty()) {
        MensagemErro(QStringLiteral("Erro procurando o produto: ") + busca.Erro());
        return false;
    }
    // A description typed with the list open takes the product selected in it.
    const int daLista = achado ? 0 : m_prodLista->CodigoSelecionado();
    if (!achado && !daLista)
        return recusar(p.BuscaLabeledEdit(), MensagemErro, QStringLiteral("Produto não encontrado"));
    m_prodLista->Esconder();

    {
        const QScopedValueRollback carregando(m_carregando, true);
        p.BuscaLabeledEdit()->selectAll();
        p.ProdCodNumEditBR()->SetValue(achado ? achado->codigo : daLista);
        p.ProdDescrLabeledEdit()->setText(achado ? achado->descr : QString());
        p.NCMMaskEdit()->setText(achado ? achado->ncm : QString());
        p.QtdEmbsNumEditBR()->SetValue(1.0);
        p.QtdCompradaNumEditBR()->SetValue(1.0);
        for (TNumEditBR *campo : {p.CustoAtualNumEditBR(), p.CustoNumEditBR(), p.PrecoAtualNumEditBR(),
                                  p.PrecoPromoNumEditBR(), p.MargemNumEditBR(), p.PrecoNumEditBR()})
            campo->SetValue(0);
        for (TNumEditBR *preco : m_tela.PrecoEdits())
            preco->SetValue(0);
    }
    return PreencherProd(achado ? achado->codigo : daLista);
}

bool TItemNota::PreencherProd(int prodCod)
{
    TItemPanel &p = m_panel;
    int codigo = prodCod > 0 ? prodCod : int(p.ProdCodNumEditBR()->Value());
    if (codigo <= 0) {
        const QString texto = p.BuscaLabeledEdit()->text().trimmed();
        codigo = SoDigitos(texto) ? StrToIntStr(texto).toInt() : m_prodLista->CodigoSelecionado();
    }
    // One attachment for the master data, prices and grades.
    if (!m_conexao.Conectar()) {
        MensagemErro(QStringLiteral("Erro lendo o produto: ") + m_conexao.UltimoErro());
        return false;
    }
    const auto desconectar = qScopeGuard([this] { m_conexao.Desconectar(); });
    TBuscaProd busca(m_conexao, emprCod());
    const auto dados = codigo > 0 ? busca.PreencherProd(codigo) : std::nullopt;
    if (!dados) {
        if (!busca.Erro().isEmpty()) {
            MensagemErro(QStringLiteral("Erro lendo o produto: ") + busca.Erro());
            return false;
        }
        // Also a product that this company does not carry.
        ZerarProd();
        return recusar(p.BuscaLabeledEdit(), MensagemErro, QStringLiteral("Produto não encontrado"));
    }
    preencherDoMestre(*dados);
    Calcule(true);
    CalculeQtd();
    focarPorTipo();
    return true;
}

void TItemNota::preencherDoMestre(const TProdDados &d)
{
    TItemPanel &p = m_panel;
    const QScopedValueRollback carregando(m_carregando, true);
    p.ProdCodNumEditBR()->SetValue(d.codigo);
    p.ProdDescrLabeledEdit()->setText(d.descr);
    SelecionarCodigo(p.UnidComboBox(), d.unidCod);
    p.EmbQtdNumEditBR()->SetValue(d.embQtd);
    SelecionarCodigo(p.TribComboBox(), d.tribCod);
    p.pIPINumEditBR()->SetMoney(d.ipi);
    p.CustoAtualNumEditBR()->SetMoney(d.custoAtual);
    p.MargemNumEditBR()->SetMoney(d.margem);
    p.PrecoAtualNumEditBR()->SetMoney(PrecoProd(m_conexao, d.codigo, emprCod()));
    p.PrecoPromoNumEditBR()->SetMoney(
        TProdPromo_PrecoPromoDBI::GetPrecoPromo(m_conexao, d.codigo, emprCod(), Contexto::Atual().Hoje()));
    p.NCMMaskEdit()->setText(d.ncm);
    m_ncmLido = d.ncm;
    if (d.nItensGrade > 0)
        CriaCombosGrade(d.codigo);
    else
        ZerarCombos();
}

void TItemNota::focarPorTipo()
{
    switch (tipo()) {
    case TipoDoc::Entrada: focar(m_panel.CFOPItemNumEditBR()); break;
    case TipoDoc::Producao: focar(m_panel.QtdEmbsNumEditBR()); break;
    default: focar(m_panel.NCMMaskEdit()); break;
    }
}

void TItemNota::CriaCombosGrade(int prodCod)
{
    ZerarCombos();
    const auto titulos = TItemNotaDBI::GradesDoProd(m_conexao, prodCod);
    if (!titulos) {
        MensagemErro(QStringLiteral("Erro lendo as grades do produto: ") + m_conexao.UltimoErro());
        return;
    }
    TBuscaProd busca(m_conexao, emprCod());
    for (QComboBox *combo : m_tela.GradeCombos()) {
        const int titulo = combo->property("grade_tit_cod").toInt();
        if (!titulos->contains(titulo))
            continue;
        for (const TGradeItem &item : busca.ItensGrade(titulo))
            combo->addItem(item.descr, item.codigo);
        combo->setCurrentIndex(0);
        combo->setEnabled(true);
    }
}

void TItemNota::ZerarCombos()
{
    // A product without that grade has nothing to choose there.
    for (QComboBox *combo : m_tela.GradeCombos()) {
        combo->clear();
        combo->setEnabled(false);
    }
}

void TItemNota::CalculeQtd()
{
    TItemPanel &p = m_panel;
    p.QtdCompradaNumEditBR()->SetValue(
        TRepF_CalculePreco::CalculeQtd(p.EmbQtdNumEditBR()->Value(), p.QtdEmbsNumEditBR()->Value()));
}

void TItemNota::Calcule(bool gravarCusto)
{
    if (!m_recalcular || m_carregando)
        return;
    TItemPanel &p = m_panel;
    TCalculePrecoEntrada e;
    e.margem = p.MargemNumEditBR()->AsMoney();
    e.custoTot = p.CustoTotItemNumEditBR()->AsMoney();
    e.desconto = p.DescontoItemNumEditBR()->AsMoney();
    e.qtdComprada = p.QtdCompradaNumEditBR()->Value();
    e.vICMS = p.vICMSNumEditBR()->AsMoney();
    e.vIPI = p.vIPINumEditBR()->AsMoney();
    e.vBCST = p.vBCSTNumEditBR()->AsMoney();
    e.outras = p.OutrasItemNumEditBR()->AsMoney();
    e.tipoIndice = indiceTipo();
    e.producCustoExige = m_tela.ProducCustoExige();
    e.ipiSomar = m_tela.IPISomar();
    e.percTabelas = TRepF_CalculePreco::PercTabelasSeguintes(m_tela.TabPrecos());
    e.custoUnitComFoco = p.CustoNumEditBR()->hasFocus();
    e.gravarCusto = gravarCusto;
    const TCalculePrecoSaida s = TRepF_CalculePreco::Calcule(e, TConexD::Conexao());
    if (!s.calculado)
        return;

    const QScopedValueRollback desligado(m_recalcular, false);
    if (s.custoTot)
        p.CustoTotItemNumEditBR()->SetMoney(*s.custoTot);
    if (s.custoUnit)
        p.CustoNumEditBR()->SetMoney(*s.custoUnit);
    p.PrecoNumEditBR()->SetMoney(s.preco);
    const QList<TNumEditBR *> &precos = m_tela.PrecoEdits();
    for (qsizetype i = 0; i < s.precosTabelas.size() && i + 1 < precos.size(); ++i)
        precos.at(i + 1)->SetMoney(s.precosTabelas.at(i));
}

void TItemNota::GravarProd()
{
    TItemPanel &p = m_panel;
    const int prodCod = int(p.ProdCodNumEditBR()->Value());
    if (prodCod < 1)
        return;
    TConexaoSQL &host = TConexD::Conexao();
    if (p.TribComboBox()->currentIndex() >= 0
        && !TConexD::Executar(TItemNotaDBI::SqlGravarProd(prodCod, p.EmbQtdNumEditBR()->Value(), p.TribComboBox()->currentData().toInt(),
                                            p.pIPINumEditBR()->AsMoney(), DigitosNCM(p.NCMMaskEdit())))) {
        MensagemErro(QStringLiteral("Erro gravando os dados do produto: ") + host.UltimoErro());
        return;
    }
    if (!TConexD::Executar(TItemNotaDBI::SqlGravarMargem(prodCod, emprCod(), p.MargemNumEditBR()->AsMoney())))
        MensagemErro(QStringLiteral("Erro gravando a margem do produto: ") + host.UltimoErro());
}

void TItemNota::GravarNCM()
{
    const int prodCod = int(m_panel.ProdCodNumEditBR()->Value());
    const QString ncm = DigitosNCM(m_panel.NCMMaskEdit());
    // An NCM left as read, or blanked, leaves the product's as it is.
    if (prodCod == 0 || ncm.isEmpty() || ncm == m_ncmLido)
        return;
    TConexaoSQL &host = TConexD::Conexao();
    if (!host.Exec(TItemNotaDBI::SqlGravarNCM(prodCod, ncm))) {
        MensagemErro(QStringLiteral("Erro gravando o NCM do produto: ") + host.UltimoErro());
        return;
    }
    m_ncmLido = ncm;
}
