#include "TCadastroF.h"

#include "Dialogos.h"
#include "FiltroTeclas.h"
#include "TClientDataSet.h"
#include "TClientManager.h"
#include "TConexaoSQL.h"
#include "TGradeDataSet.h"
#include "TNumEditBR.h"
#include "Valores.h"

#include <QComboBox>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLineEdit>
#include <QPushButton>
#include <QTableView>
#include <QVBoxLayout>

namespace {

using T = TTipoColunaCadastro;

TFieldType TipoDoCampo(T tipo)
{
    switch (tipo) {
    case T::Codigo:
    case T::Lista: return TFieldType::Integer;
    case T::Valor: return TFieldType::Money;
    case T::Quantidade: return TFieldType::Float;
    case T::Texto: break;
    }
    return TFieldType::String;
}

const QString SufixoTexto = QStringLiteral("_texto");

QString FormatoDe(T tipo)
{
    switch (tipo) {
    case T::Valor: return QStringLiteral("#,###,##0.00");
    case T::Quantidade: return QStringLiteral("#,###,##0.000");
    default: return {};
    }
}

bool Numerico(T tipo)
{
    return tipo == T::Codigo || tipo == T::Valor || tipo == T::Quantidade;
}

} // namespace

TCadastroF::TCadastroF(TDefCadastro def, TConexaoSQL &conexao, QWidget *parent)
    : QDialog(parent), m_def(std::move(def)), m_conexao(conexao), m_linhas(new TClientDataSet(this)), m_manager(nullptr)
{
    setObjectName(m_def.form);
    setWindowTitle(m_def.titulo);
    for (const TColunaCadastro &c : std::as_const(m_def.colunas)) {
        // A code chosen from a list is shown by its text.
        const bool lista = c.tipo == T::Lista;
        m_linhas->AddField(c.nome, TipoDoCampo(c.tipo), c.titulo, FormatoDe(c.tipo), !lista,
                           c.tipo == T::Texto ? std::min(c.tamanho, 40) : 0);
        if (lista)
            m_linhas->AddField(c.nome + SufixoTexto, TFieldType::String, c.titulo, {}, true, 16);
    }
    m_linhas->Open();
    m_manager = new TClientManager(m_linhas, this);
    montar();
    connect(m_linhas, &TClientDataSet::AfterScroll, this, &TCadastroF::linhaParaCampos);
    Carregar();
}

TCadastroF::~TCadastroF() = default;

void TCadastroF::montar()
{
    auto *layout = new QVBoxLayout(this);
    m_grade = new QTableView(this);
    m_grade->setObjectName(QStringLiteral("CadastroDBGrid"));
    m_grade->verticalHeader()->hide();
    m_grade->setAlternatingRowColors(true);
    m_grade->horizontalHeader()->setStretchLastSection(true);
    TGradeDataSet::Attach(m_manager, m_grade);
    layout->addWidget(m_grade, 1);

    // Long registers take two columns of fields, so the dialog keeps its height.
    const int colunasDeCampos = m_def.colunas.size() > 10 ? 2 : 1;
    auto *campos = new QHBoxLayout;
    QList<QFormLayout *> forms;
    for (int i = 0; i < colunasDeCampos; ++i) {
        forms << new QFormLayout;
        campos->addLayout(forms.last(), 1);
    }
    const qsizetype porForm = (m_def.colunas.size() + colunasDeCampos - 1) / colunasDeCampos;
    for (const TColunaCadastro &c : std::as_const(m_def.colunas)) {
        QWidget *campo = nullptr;
        if (Numerico(c.tipo)) {
            auto *num = new TNumEditBR(this);
            num->SetDecimals(c.tipo == T::Codigo ? 0 : c.tipo == T::Quantidade ? 3 : c.tamanho);
            num->setMaximumWidth(140);
            campo = num;
        } else if (c.tipo == T::Lista) {
            auto *combo = new QComboBox(this);
            if (const auto q = m_conexao.Ab(c.lista)) {
                for (q->First(); !q->Eof(); q->Next())
                    combo->addItem(q->Fields(1).AsString().trimmed(), q->Fields(0).AsInteger());
            } else {
                MensagemErro(QStringLiteral("Erro lendo a lista de ") + c.titulo + QStringLiteral(": ") + m_conexao.UltimoErro());
            }
            combo->setCurrentIndex(-1);
            campo = combo;
        } else {
            auto *texto = new QLineEdit(this);
            if (c.tamanho > 0)
                texto->setMaxLength(c.tamanho);
            if (!c.caracteres.isEmpty())
                FiltroTeclas::Aplicar(texto, c.caracteres, c.tamanho);
            // A short code is as wide as what it holds.
            if (c.tamanho > 0 && c.tamanho <= 20)
                texto->setMaximumWidth(fontMetrics().horizontalAdvance(QString(c.tamanho + 2, QLatin1Char('0'))) + 12);
            campo = texto;
        }
        campo->setObjectName(QStringLiteral("Campo_") + c.nome);
        forms.at(m_campos.size() / porForm)->addRow(c.titulo, campo);
        m_campos << campo;
    }
    layout->addLayout(campos);

    auto *botoes = new QHBoxLayout;
    m_novo = new QPushButton(QStringLiteral("Novo"), this);
    m_novo->setObjectName(QStringLiteral("NovoButton"));
    m_gravar = new QPushButton(QStringLiteral("Gravar"), this);
    m_gravar->setObjectName(QStringLiteral("GravarButton"));
    m_excluir = new QPushButton(QStringLiteral("Excluir"), this);
    m_excluir->setObjectName(QStringLiteral("ExcluirButton"));
    auto *fechar = new QPushButton(QStringLiteral("Fechar"), this);
    fechar->setObjectName(QStringLiteral("FecharButton"));
    for (QPushButton *b : {m_novo, m_gravar, m_excluir, fechar})
        b->setAutoDefault(false);
    botoes->addWidget(m_novo);
    botoes->addWidget(m_gravar);
    botoes->addWidget(m_excluir);
    botoes->addStretch();
    botoes->addWidget(fechar);
    layout->addLayout(botoes);
    connect(m_novo, &QPushButton::clicked, this, &TCadastroF::Novo);
    connect(m_gravar, &QPushButton::clicked, this, &TCadastroF::Gravar);
    connect(m_excluir, &QPushButton::clicked, this, &TCadastroF::Excluir);
    connect(fechar, &QPushButton::clicked, this, &QDialog::accept);
    resize(colunasDeCampos == 1 ? 680 : 900, colunasDeCampos == 1 ? 520 : 640);
}

QWidget *TCadastroF::Campo(const QString &coluna) const
{
    return findChild<QWidget *>(QStringLiteral("Campo_") + coluna);
}

bool TCadastroF::Carregar(int codigo)
{
    const auto q = m_conexao.Ab(TCadastroDBI::SqlSelect(m_def));
    if (!q) {
        MensagemErro(QStringLiteral("Erro lendo ") + m_def.titulo + QStringLiteral(": ") + m_conexao.UltimoErro());
        return false;
    }
    m_linhas->DisableControls();
    m_linhas->EmptyDataSet();
    for (q->First(); !q->Eof(); q->Next()) {
        m_linhas->Append();
        for (int i = 0; i < int(m_def.colunas.size()); ++i) {
            const TColunaCadastro &c = m_def.colunas.at(i);
            TField &f = m_linhas->FieldByName(c.nome);
            if (f.DataType() == TFieldType::Money)
                f.SetAsMoney(q->Fields(i).AsMoney());
            else
                f.SetValue(q->Fields(i).IsNull() ? QVariant() : QVariant(q->Fields(i).AsString().trimmed()));
            if (c.tipo == T::Lista && !f.IsNull()) {
                const auto *combo = qobject_cast<QComboBox *>(Campo(c.nome));
                m_linhas->FieldByName(c.nome + SufixoTexto).SetAsString(combo->itemText(combo->findData(f.AsInteger())));
            }
        }
        m_linhas->Post();
    }
    if (codigo == 0 || !m_linhas->Locate(m_def.colunas.first().nome, codigo))
        m_linhas->First();
    m_linhas->EnableControls();
    linhaParaCampos();
    return true;
}

void TCadastroF::linhaParaCampos()
{
    const bool vazio = m_linhas->IsEmpty();
    for (qsizetype i = 0; i < m_campos.size(); ++i) {
        const TField &f = m_linhas->FieldByName(m_def.colunas.at(i).nome);
        QWidget *campo = m_campos.at(i);
        if (auto *num = qobject_cast<TNumEditBR *>(campo))
            num->SetMoney(vazio ? Money() : f.AsMoney());
        else if (auto *combo = qobject_cast<QComboBox *>(campo))
            combo->setCurrentIndex(vazio || f.IsNull() ? -1 : combo->findData(f.AsInteger()));
        else if (auto *texto = qobject_cast<QLineEdit *>(campo))
            texto->setText(vazio ? QString() : f.AsString());
    }
    // The code of a stored row is its key; only a new row takes a code.
    if (auto *codigo = qobject_cast<TNumEditBR *>(m_campos.first()))
        codigo->SetReadOnlyLook(!vazio);
    m_excluir->setEnabled(!vazio);
}

void TCadastroF::Novo()
{
    const int proximo = m_conexao.ValorInt(TCadastroDBI::SqlProximoCodigo(m_def));
    for (qsizetype i = 0; i < m_campos.size(); ++i) {
        const QString &padrao = m_def.colunas.at(i).padrao;
        QWidget *campo = m_campos.at(i);
        if (auto *num = qobject_cast<TNumEditBR *>(campo))
            num->SetValue(padrao.toDouble());
        else if (auto *combo = qobject_cast<QComboBox *>(campo))
            combo->setCurrentIndex(padrao.isEmpty() ? -1 : combo->findData(padrao.toInt()));
        else if (auto *texto = qobject_cast<QLineEdit *>(campo))
            texto->setText(padrao);
    }
    auto *codigo = qobject_cast<TNumEditBR *>(m_campos.first());
    codigo->SetReadOnlyLook(false);
    codigo->SetValue(proximo);
    m_campos.value(1, codigo)->setFocus();
}

int TCadastroF::codigoDosCampos() const
{
    return int(qobject_cast<TNumEditBR *>(m_campos.first())->Value());
}

QString TCadastroF::valorSql(const TColunaCadastro &coluna) const
{
    QWidget *campo = Campo(coluna.nome);
    if (auto *num = qobject_cast<TNumEditBR *>(campo))
        return coluna.tipo == T::Codigo ? QString::number(int(num->Value())) : FloatToStrPonto(num->AsMoney());
    if (auto *combo = qobject_cast<QComboBox *>(campo))
        return combo->currentIndex() < 0 ? QStringLiteral("NULL") : QString::number(combo->currentData().toInt());
    const QString texto = qobject_cast<QLineEdit *>(campo)->text().trimmed();
    return texto.isEmpty() ? QStringLiteral("NULL") : QuotedStr(texto);
}

bool TCadastroF::verificado()
{
    if (!m_def.verificar)
        return true;
    QHash<QString, QString> textos;
    for (const TColunaCadastro &c : std::as_const(m_def.colunas)) {
        QWidget *campo = Campo(c.nome);
        if (auto *combo = qobject_cast<QComboBox *>(campo))
            textos.insert(c.nome, combo->currentIndex() < 0 ? QString() : combo->currentData().toString());
        else if (auto *texto = qobject_cast<QLineEdit *>(campo))
            textos.insert(c.nome, texto->text().trimmed());
    }
    QString coluna;
    const QString mensagem = m_def.verificar(textos, &coluna);
    if (mensagem.isEmpty())
        return true;
    MensagemErro(mensagem);
    if (QWidget *campo = Campo(coluna))
        campo->setFocus();
    return false;
}

bool TCadastroF::Gravar()
{
    for (const TColunaCadastro &c : std::as_const(m_def.colunas)) {
        const QString valor = valorSql(c);
        if (c.obrigatoria && (valor == QLatin1String("NULL") || valor == QLatin1String("0"))) {
            MensagemErro(QStringLiteral("O campo ") + c.titulo + QStringLiteral(" é obrigatório"));
            Campo(c.nome)->setFocus();
            return false;
        }
    }
    if (!verificado())
        return false;
    const TColunaCadastro &chave = m_def.colunas.first();
    const int codigo = codigoDosCampos();
    const bool novo = !qobject_cast<TNumEditBR *>(m_campos.first())->ReadOnlyLook();
    if (novo && m_linhas->Locate(chave.nome, codigo)) {
        MensagemErro(QStringLiteral("Já existe um registro com o código %1").arg(codigo));
        Campo(chave.nome)->setFocus();
        return false;
    }
    QStringList valores;
    for (const TColunaCadastro &c : std::as_const(m_def.colunas))
        valores << valorSql(c);
    const QStringList sql = novo ? TCadastroDBI::SqlInserir(m_def, valores, codigo)
                                 : QStringList{TCadastroDBI::SqlAlterar(m_def, valores, codigo)};
    for (const QString &s : std::as_const(sql)) {
        if (!m_conexao.Exec(s)) {
            MensagemErro(QStringLiteral("Erro gravando ") + m_def.titulo + QStringLiteral(": ") + m_conexao.UltimoErro());
            Carregar(codigo);
            return false;
        }
        m_alterado = true;
    }
    return Carregar(codigo);
}

bool TCadastroF::Excluir()
{
    if (m_linhas->IsEmpty() || !PerguntaDeletar())
        return false;
    const TColunaCadastro &chave = m_def.colunas.first();
    const int codigo = m_linhas->FieldByName(chave.nome).AsInteger();
    if (!m_conexao.Exec(TCadastroDBI::SqlExcluir(m_def, codigo))) {
        MensagemErro(QStringLiteral("Erro excluindo de ") + m_def.titulo + QStringLiteral(": ") + m_conexao.UltimoErro());
        return false;
    }
    m_alterado = true;
    return Carregar();
}

namespace Cadastros {

std::unique_ptr<TCadastroF> Criar(const QString &form, const QString &acao, TConexaoSQL &conexao, QWidget *parent)
{
    const TDefCadastro *def = TCadastroDBI::Definicao(form, acao);
    if (!def)
        return nullptr;
    return std::make_unique<TCadastroF>(*def, conexao, parent);
}

bool Abrir(const QString &form, const QString &acao, TConexaoSQL &conexao, QWidget *parent)
{
    const auto editor = Criar(form, acao, conexao, parent);
    if (!editor)
        return false;
    editor->exec();
    return editor->Alterado();
}

} // namespace Cadastros
