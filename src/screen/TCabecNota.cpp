#include "TCabecNota.h"

#include "Contexto.h"
#include "Dialogos.h"
#include "LogAlt.h"
#include "TClientDataSet.h"
#include "TConexD.h"
#include "TConexaoSQL.h"
#include "TEdNotaPanel.h"
#include "TFiscoConfig.h"
#include "TNumEditBR.h"
#include "UTipoDoc.h"

#include <QApplication>
#include <QComboBox>
#include <QDateEdit>
#include <QFocusEvent>
#include <QLineEdit>
#include <QPushButton>

namespace {

int codigoSelecionado(const QComboBox *combo)
{
    return combo->currentIndex() >= 0 ? combo->currentData().toInt() : 0;
}

void selecionarCodigo(QComboBox *combo, int codigo)
{
    combo->setCurrentIndex(combo->findData(codigo));
}

// "hh:mm" as typed in the masked edit; an untouched edit (":") is no hour at all.
std::optional<QTime> horaDigitada(const QString &texto, bool *vazia)
{
    const QString limpo = texto.trimmed();
    *vazia = limpo.isEmpty() || limpo == QLatin1String(":");
    if (*vazia)
        return QTime(0, 0);
    const QTime hora = QTime::fromString(limpo, QStringLiteral("hh:mm"));
    if (!hora.isValid())
        return std::nullopt;
    return hora;
}

const char *const MsgHora = "A hora de saída deve ser digitada como hh:mm, de 00:00 a 23:59";

} // namespace

TCabecNota::TCabecNota(TEdNotaPanel *panel, TClientDataSet &notas, TConexaoSQL &conexao, QObject *parent)
    : QObject(parent), m_panel(panel), m_notas(notas), m_conexao(conexao)
{
    TEdNotaPanel &p = *m_panel;
    m_checkAoSair = {
        {p.FornecComboBox(), [this] { return FornecAceito(); }},
        {p.DtDocDtFr(), [this] { return DtDocAceita(); }},
        {p.HSaiMaskEdit(), [this] { return HSaiAceita(); }},
        {p.NDocNumEditBR(), [this] { return NDocAceito() && NDocUnicoAceito(); }},
        {p.SerieNumEditBR(), [this] { return SerieAceita() && NDocUnicoAceito(); }},
        {p.TotProdNumEditBR(), [this] { return TotProdAceito(); }},
        {p.NFEChaveRefLabeledEdit(), [this] { return ChaveRefAceita(); }},
        {p.TranspFornecComboBox(), [this] { return FreteAceito(); }},
        {p.CompraNatOpLabeledEdit(), [this] { return NatOpAceita(); }},
        {p.CompraCFOPNumEditBR(), [this] { return CFOPAceito(); }},
    };
    for (auto it = m_checkAoSair.cbegin(); it != m_checkAoSair.cend(); ++it)
        it.key()->installEventFilter(this);

    for (TNumEditBR *campo : {p.TotProdNumEditBR(), p.FreteNumEditBR(), p.OutrasNumEditBR(), p.ICMSSTTotNumEditBR(),
                              p.FCPTotNumEditBR(), p.FCPSTTotNumEditBR(), p.DescontoTotNumEditBR(), p.IPITotNumEditBR()})
        connect(campo, &TNumEditBR::ValueChanged, this, &TCabecNota::CalcTotNota);
}

bool TCabecNota::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::FocusOut && !m_checando) {
        const auto reason = static_cast<QFocusEvent *>(event)->reason();
        // Another window (a message, a popup) taking the focus is not leaving the field.
        if (reason != Qt::ActiveWindowFocusReason && reason != Qt::PopupFocusReason) {
            if (const auto check = m_checkAoSair.value(watched))
                check();
        }
    }
    return QObject::eventFilter(watched, event);
}

bool TCabecNota::podeChecar() const
{
    return m_panel->isVisible() && QApplication::focusWidget() != m_panel->NotaCancButton();
}

bool TCabecNota::recusar(QWidget *campo, void (*mensagem)(const QString &), const QString &texto)
{
    // The message and the way back to the field must not set off the checks of other fields.
    m_checando = true;
    mensagem(texto);
    m_panel->Abas()->setCurrentWidget(m_panel->Abas()->widget(0));
    for (QWidget *w = campo->parentWidget(); w; w = w->parentWidget()) {
        const int aba = m_panel->Abas()->indexOf(w);
        if (aba >= 0)
            m_panel->Abas()->setCurrentIndex(aba);
    }
    campo->setFocus(Qt::OtherFocusReason);
    m_checando = false;
    return false;
}

int TCabecNota::indiceTipo() const
{
    return m_panel->TipoDocComboBox()->currentIndex();
}

int TCabecNota::tipoCod() const
{
    return TipoDoc::CodigoDoIndice(indiceTipo());
}

bool TCabecNota::FornecAceito()
{
    if (!podeChecar() || !TipoDoc::PorCodigo(tipoCod())->exigeFornecedor
        || m_panel->FornecComboBox()->currentIndex() >= 0)
        return true;
    return recusar(m_panel->FornecComboBox(), MensagemErro, QStringLiteral("O fornecedor é obrigatório"));
}

bool TCabecNota::DtDocAceita()
{
    if (!podeChecar() || m_panel->DtDocDtFr()->date() <= Contexto::Atual().Hoje())
        return true;
    return recusar(m_panel->DtDocDtFr(), MensagemErro,
                   QStringLiteral("A data do documento deve ser igual a de hoje ou anterior"));
}

bool TCabecNota::HSaiAceita()
{
    bool vazia = false;
    if (!podeChecar() || horaDigitada(m_panel->HSaiMaskEdit()->text(), &vazia))
        return true;
    return recusar(m_panel->HSaiMaskEdit(), MensagemErro, QString::fromUtf8(MsgHora));
}

bool TCabecNota::NDocAceito()
{
    // Other types take their number from their own NF-e.
    if (!podeChecar() || !TipoDoc::PorCodigo(tipoCod())->numeroDigitado || m_panel->NDocNumEditBR()->Value() >= 1)
        return true;
    return recusar(m_panel->NDocNumEditBR(), MensagemErro, QStringLiteral("O nº do documento é obrigatório"));
}

bool TCabecNota::NDocUnicoAceito()
{
    const TCompraCabecDBI nota = ControlesParaCamposNota();
    if (!podeChecar() || nota.fornecCod <= 0 || nota.ndoc <= 0)
        return true;
    if (m_conexao.ValorInt(nota.SqlNumeroUnico()) <= 0)
        return true;
    return recusar(m_panel->NDocNumEditBR(), MensagemErro,
                   QStringLiteral("Este número de documento já foi cadastrado para este fornecedor e para este tipo de nota"));
}

bool TCabecNota::SerieAceita()
{
    if (!podeChecar() || !m_panel->SerieNumEditBR()->text().trimmed().isEmpty())
        return true;
    return recusar(m_panel->SerieNumEditBR(), MensagemErro, QStringLiteral("A série do documento é obrigatória"));
}

bool TCabecNota::TotProdAceito()
{
    // Returns, production and returned goods may carry no product value.
    const bool dispensado = QStringLiteral("\\1\\3\\4\\5\\").contains(QStringLiteral("\\%1\\").arg(indiceTipo()));
    if (!podeChecar() || dispensado || m_panel->TotProdNumEditBR()->AsMoney() >= Money::fromRaw(100))
        return true;
    return recusar(m_panel->TotProdNumEditBR(), MensagemErro, QStringLiteral("O total de produtos é obrigatório"));
}

bool TCabecNota::ChaveRefAceita()
{
    if (!podeChecar() || tipoCod() != TipoDoc::Devolucao || m_panel->NFEChaveRefLabeledEdit()->text().size() == 44)
        return true;
    return recusar(m_panel->NFEChaveRefLabeledEdit(), MensagemErro,
                   QStringLiteral("A chave NFE da nota de referência é obrigatória e deve ter 44 dígitos. "
                                  "Ajuste a chave e tente novamente."));
}

bool TCabecNota::FreteAceito()
{
    QComboBox *modalidade = m_panel->FreteModalidadeComboBox();
    if (!podeChecar() || modalidade->currentIndex() != 3 || codigoSelecionado(m_panel->TranspFornecComboBox()) > 0)
        return true;
    return recusar(m_panel->TranspFornecComboBox(), MensagemAviso,
                   QStringLiteral("Para modalidade de frete ") + modalidade->currentText()
                       + QStringLiteral(" é necessário indicar a transportadora"));
}

bool TCabecNota::NatOpAceita()
{
    if (!podeChecar() || indiceTipo() <= 0 || !m_panel->CompraNatOpLabeledEdit()->text().trimmed().isEmpty())
        return true;
    return recusar(m_panel->CompraNatOpLabeledEdit(), MensagemInfo,
                   QStringLiteral("A Natureza da Operação é obrigatória para Devoluçoes e Simples Remessas"));
}

// The CFOP is not demanded of any type; the check stays so that it can be switched back on.
bool TCabecNota::CFOPAceito()
{
    return true;
}

bool TCabecNota::TotaisAceitos()
{
    CalcTotNota();
    if (!podeChecar() || m_panel->TotNumEditBR()->AsMoney() >= Money())
        return true;
    return recusar(m_panel->DescontoTotNumEditBR(), MensagemErro,
                   QStringLiteral("O total da nota não pode ser negativo. Confira o desconto"));
}

bool TCabecNota::DocAceito()
{
    return FornecAceito() && DtDocAceita() && HSaiAceita() && NDocAceito() && NDocUnicoAceito() && SerieAceita()
           && TotProdAceito() && ChaveRefAceita() && FreteAceito() && NatOpAceita() && CFOPAceito();
}

void TCabecNota::CalcTotNota()
{
    const TEdNotaPanel &p = *m_panel;
    p.TotNumEditBR()->SetMoney(TCompraCabecDBI::Total(p.TotProdNumEditBR()->AsMoney(), p.FreteNumEditBR()->AsMoney(),
                                                 p.OutrasNumEditBR()->AsMoney(), p.ICMSSTTotNumEditBR()->AsMoney(),
                                                 p.FCPTotNumEditBR()->AsMoney(), p.FCPSTTotNumEditBR()->AsMoney(),
                                                 p.DescontoTotNumEditBR()->AsMoney(), p.IPITotNumEditBR()->AsMoney(),
                                                 m_ipiSomar));
}

void TCabecNota::ZerarNota()
{
    TEdNotaPanel &p = *m_panel;
    const QDate hoje = Contexto::Atual().Hoje();
    for (QWidget *campo : p.Campos()) {
        if (auto *num = qobject_cast<TNumEditBR *>(campo))
            num->SetValue(0);
        else if (auto *texto = qobject_cast<QLineEdit *>(campo))
            texto->clear();
    }
    p.SerieNumEditBR()->clear();
    selecionarCodigo(p.EmprComboBox(), Contexto::Atual().empresa);
    p.DestinEmprComboBox()->setCurrentIndex(0);
    p.TipoDocComboBox()->setCurrentIndex(0);
    p.FornecComboBox()->setCurrentIndex(-1);
    p.TranspFornecComboBox()->setCurrentIndex(0);
    p.FreteModalidadeComboBox()->setCurrentIndex(0);
    p.DtDocDtFr()->setDate(hoje);
    p.DtSaiDtFr()->setDate(hoje);
    m_chave = {};
    p.Abas()->setCurrentIndex(0);
}

bool TCabecNota::CamposParaControlesNota(const TChaveNota &chave)
{
    QString erro;
    const auto lida = TCompraCabecDBI::Ler(m_conexao, chave, m_ipiSomar, &erro);
    if (!lida) {
        MensagemErro(QStringLiteral("Erro lendo a nota: ") + erro);
        return false;
    }
    const TCompraCabecDBI &n = *lida;
    TEdNotaPanel &p = *m_panel;
    selecionarCodigo(p.EmprComboBox(), n.chave.emprCod);
    selecionarCodigo(p.DestinEmprComboBox(), n.destinEmprCod);
    p.TipoDocComboBox()->setCurrentIndex(TipoDoc::IndiceDoCodigo(n.tipoCod));
    p.DtDocDtFr()->setDate(n.dtDoc);
    p.DtSaiDtFr()->setDate(n.dthSai.date());
    p.HSaiMaskEdit()->setText(n.dthSai.isValid() ? n.dthSai.time().toString(QStringLiteral("hh:mm")) : QString());
    p.NDocNumEditBR()->SetValue(n.ndoc);
    p.SerieNumEditBR()->setText(n.serie);
    selecionarCodigo(p.FornecComboBox(), n.fornecCod);
    p.TotProdNumEditBR()->SetMoney(n.totProds);
    p.IPITotNumEditBR()->SetMoney(n.ipi);
    p.FreteNumEditBR()->SetMoney(n.frete);
    p.OutrasNumEditBR()->SetMoney(n.outras);
    p.ICMSTotNumEditBR()->SetMoney(n.icms);
    p.ICMSSTTotNumEditBR()->SetMoney(n.icmsST);
    p.FCPTotNumEditBR()->SetMoney(n.fcp);
    p.FCPSTTotNumEditBR()->SetMoney(n.fcpst);
    p.DescontoTotNumEditBR()->SetMoney(n.desconto);
    p.FreteModalidadeComboBox()->setCurrentIndex(n.freteModalidade);
    p.CompraCFOPNumEditBR()->SetValue(n.cfop);
    p.CompraNatOpLabeledEdit()->setText(n.natOp);
    for (int i = 0; i < p.ChavesRef().size(); ++i)
        p.ChavesRef().at(i)->setText(n.chavesRef.value(i));
    selecionarCodigo(p.TranspFornecComboBox(), n.transpFornecCod);
    p.FreteBCValNumEditBR()->SetMoney(n.freteIcmsBCVal);
    p.FreteICMSNumEditBR()->SetMoney(n.freteIcmsPerc);
    p.FreteICMSRetValNumEditBR()->SetMoney(n.freteIcmsRetVal);
    p.FreteCFOPNumEditBR()->SetValue(n.freteCfop);
    p.FreteVeiPlacaLabeledEdit()->setText(n.veiPlaca);
    p.FreteVeiUFLabeledEdit()->setText(n.veiUF);
    p.FreteVeiANTTLabeledEdit()->setText(n.veiANTT);
    p.FreteReboque1PlacaLabeledEdit()->setText(n.reboque1Placa);
    p.FreteReboque1UFLabeledEdit()->setText(n.reboque1UF);
    p.FreteReboque1ANTTLabeledEdit()->setText(n.reboque1ANTT);
    p.FreteReboque2PlacaLabeledEdit()->setText(n.reboque2Placa);
    p.FreteReboque2UFLabeledEdit()->setText(n.reboque2UF);
    p.FreteReboque2ANTTLabeledEdit()->setText(n.reboque2ANTT);
    p.FreteVolsQtdNumEditBR()->SetValue(n.volsQtd);
    p.FreteVolsEspecieLabeledEdit()->setText(n.volsEspecie);
    p.FreteVolsMarcaLabeledEdit()->setText(n.volsMarca);
    p.FreteVolsNumLabeledEdit()->setText(n.volsNum);
    p.FretePesoLiqNumEditBR()->SetValue(n.pesoLiq);
    p.FretePesoBrutoNumEditBR()->SetValue(n.pesoBruto);
    CalcTotNota();
    m_chave = n.chave;
    p.Abas()->setCurrentIndex(0);
    return true;
}

TCompraCabecDBI TCabecNota::ControlesParaCamposNota() const
{
    const TEdNotaPanel &p = *m_panel;
    TCompraCabecDBI n;
    n.chave = {EmprCod(), m_chave.estacaoCod, m_chave.compraCod};
    n.destinEmprCod = codigoSelecionado(p.DestinEmprComboBox());
    n.tipoCod = tipoCod();
    n.dtDoc = p.DtDocDtFr()->date();
    bool vazia = false;
    n.dthSai = QDateTime(p.DtSaiDtFr()->date(), horaDigitada(p.HSaiMaskEdit()->text(), &vazia).value_or(QTime(0, 0)));
    n.ndoc = int(p.NDocNumEditBR()->Value());
    n.serie = p.SerieNumEditBR()->text().trimmed();
    n.fornecCod = codigoSelecionado(p.FornecComboBox());
    n.fornecNome = n.fornecCod > 0 ? p.FornecComboBox()->currentText() : QString();
    n.totProds = p.TotProdNumEditBR()->AsMoney();
    n.ipi = p.IPITotNumEditBR()->AsMoney();
    n.frete = p.FreteNumEditBR()->AsMoney();
    n.outras = p.OutrasNumEditBR()->AsMoney();
    n.icms = p.ICMSTotNumEditBR()->AsMoney();
    n.icmsST = p.ICMSSTTotNumEditBR()->AsMoney();
    n.fcp = p.FCPTotNumEditBR()->AsMoney();
    n.fcpst = p.FCPSTTotNumEditBR()->AsMoney();
    n.desconto = p.DescontoTotNumEditBR()->AsMoney();
    n.tot = p.TotNumEditBR()->AsMoney();
    n.freteModalidade = qMax(0, p.FreteModalidadeComboBox()->currentIndex());
    n.cfop = int(p.CompraCFOPNumEditBR()->Value());
    n.natOp = p.CompraNatOpLabeledEdit()->text().trimmed();
    for (const QLineEdit *chave : p.ChavesRef())
        n.chavesRef << chave->text().trimmed();
    n.transpFornecCod = codigoSelecionado(p.TranspFornecComboBox());
    n.freteIcmsBCVal = p.FreteBCValNumEditBR()->AsMoney();
    n.freteIcmsPerc = p.FreteICMSNumEditBR()->AsMoney();
    n.freteIcmsRetVal = p.FreteICMSRetValNumEditBR()->AsMoney();
    n.freteCfop = int(p.FreteCFOPNumEditBR()->Value());
    n.veiPlaca = p.FreteVeiPlacaLabeledEdit()->text();
    n.veiUF = p.FreteVeiUFLabeledEdit()->text();
    n.veiANTT = p.FreteVeiANTTLabeledEdit()->text();
    n.reboque1Placa = p.FreteReboque1PlacaLabeledEdit()->text();
    n.reboque1UF = p.FreteReboque1UFLabeledEdit()->text();
    n.reboque1ANTT = p.FreteReboque1ANTTLabeledEdit()->text();
    n.reboque2Placa = p.FreteReboque2PlacaLabeledEdit()->text();
    n.reboque2UF = p.FreteReboque2UFLabeledEdit()->text();
    n.reboque2ANTT = p.FreteReboque2ANTTLabeledEdit()->text();
    n.volsQtd = p.FreteVolsQtdNumEditBR()->Value();
    n.volsEspecie = p.FreteVolsEspecieLabeledEdit()->text();
    n.volsMarca = p.FreteVolsMarcaLabeledEdit()->text();
    n.volsNum = p.FreteVolsNumLabeledEdit()->text();
    n.pesoLiq = p.FretePesoLiqNumEditBR()->Value();
    n.pesoBruto = p.FretePesoBrutoNumEditBR()->Value();
    return n;
}

int TCabecNota::EmprCod() const
{
    const int escolhida = codigoSelecionado(m_panel->EmprComboBox());
    return escolhida > 0 ? escolhida : qMax(0, Contexto::Atual().empresa);
}

bool TCabecNota::NotaConfirmIns()
{
    TCompraCabecDBI nota = ControlesParaCamposNota();
    if (nota.chave.emprCod <= 0) {
        MensagemErro(QStringLiteral("Nenhuma empresa cadastrada: a nota não pode ser gravada sem empresa."));
        return false;
    }
    nota.chave.estacaoCod = TConexD::EstacaoCod();
    nota.chave.compraCod = TCompraCabecDBI::ProximoCodigo(m_conexao);
    if (nota.chave.compraCod <= 0) {
        MensagemErro(QStringLiteral("Erro obtendo o código da nova nota: ") + m_conexao.UltimoErro());
        return false;
    }
    QString fisco;
    QString contribuinte;
    QString erro;
    if (!TFiscoConfig::PegaInfoAdic(m_conexao, &fisco, &contribuinte, &erro))
        MensagemErro(QStringLiteral("Erro verificando informações adicionais ao fisco"));
    if (!m_conexao.Exec(nota.SqlInsert(fisco, contribuinte))) {
        MensagemErro(QStringLiteral("Erro gravando a nota: ") + m_conexao.UltimoErro());
        return false;
    }
    m_notas.Append();
    nota.ParaLinhaDaLista(m_notas, TCompraCabecDBI::NomeDestino(m_conexao, nota.destinEmprCod));
    m_notas.Post();
    m_chave = nota.chave;
    return true;
}

bool TCabecNota::NotaConfirmAlt()
{
    TCompraCabecDBI nota = ControlesParaCamposNota();
    nota.chave.emprCod = m_chave.emprCod;   // the company is part of the key; the update does not move the note
    nota.baixado = m_notas.FieldByName(QStringLiteral("BAIXADO")).AsBoolean();
    nota.cancelado = m_notas.FieldByName(QStringLiteral("CANCELADO")).AsBoolean();
    if (!m_conexao.Exec(nota.SqlUpdate())) {
        MensagemErro(QStringLiteral("Erro gravando a nota: ") + m_conexao.UltimoErro());
        return false;
    }
    const QString chave = QStringLiteral("%1-%2-%3").arg(nota.chave.emprCod).arg(nota.chave.estacaoCod).arg(nota.chave.compraCod);
    InsLogAlt(m_conexao, QStringLiteral("COMPRA"), chave, QStringLiteral("Alteração do cabeçalho da nota"));
    m_notas.Edit();
    nota.ParaLinhaDaLista(m_notas, TCompraCabecDBI::NomeDestino(m_conexao, nota.destinEmprCod));
    m_notas.Post();
    return true;
}
