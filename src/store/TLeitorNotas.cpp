#include "TLeitorNotas.h"

#include "TChaveNota.h"
#include "TClientDataSet.h"
#include "TConexaoSQL.h"
#include "UTipoDoc.h"
#include "Valores.h"

namespace {

// A text or BLOB column: empty when null or without a single character.
bool Vazio(const QVariant &v)
{
    if (v.isNull())
        return true;
    if (v.typeId() == QMetaType::QByteArray)
        return v.toByteArray().isEmpty();
    return v.toString().isEmpty();
}

} // namespace

TLeitorNotas::TLeitorNotas(const TQ &q, TClientDataSet &notas, TConexaoSQL &conexao)
        : m_q(q), m_conexao(conexao), m_tipo(coluna("TIPO_COD")), m_empr(coluna("EMPR_COD")),
          m_compra(coluna("COMPRA_COD")), m_baixado(coluna("BAIXADO")), m_cancelado(coluna("CANCELADO")),
          m_xml(coluna("ARQ_XML")), m_destin(coluna("DESTIN_EMPR_COD")),
          fTipoCod(notas.FieldByName(QStringLiteral("TIPO_cod"))), fBaixado(notas.FieldByName(QStringLiteral("BAIXADO"))),
          fCancelado(notas.FieldByName(QStringLiteral("CANCELADO"))),
          fTipoDocStr(notas.FieldByName(QStringLiteral("TIPO_DOC_STR"))),
          fDocStr(notas.FieldByName(QStringLiteral("DOC_STR"))),
          fBaixadoStr(notas.FieldByName(QStringLiteral("BAIXADO_STR"))),
          fCanceladoStr(notas.FieldByName(QStringLiteral("CANCELADO_STR"))),
          fDocOrigStr(notas.FieldByName(QStringLiteral("DOC_ORIG_STR"))),
          fDestinEmprRaz(notas.FieldByName(QStringLiteral("DESTIN_EMPR_RAZ")))
    {
        // Every list field named after a column of the statement, except the derived ones.
        for (int f = 0; f < notas.FieldCount(); ++f) {
            TField &campo = notas.Fields(f);
            if (&campo == &fTipoCod || &campo == &fBaixado || &campo == &fCancelado)
                continue;
            if (const int c = m_q.FieldIndex(campo.FieldName()); c >= 0)
                m_copias.push_back({c, &campo});
        }
    }

int TLeitorNotas::coluna(const char *nome) const
{
    return m_q.FieldIndex(QLatin1String(nome));
}

QString TLeitorNotas::TipoLido() const
{
    return m_q.Fields(m_tipo).AsString();
}

bool TLeitorNotas::Xml() const
{
    return !Vazio(m_q.valueAt(m_xml));
}

QString TLeitorNotas::Preencher()
{
    for (const Copia &c : m_copias)
        c.campo->SetValue(m_q.valueAt(c.coluna));
    const int tipoCod = TipoDoc::CodigoDoChar(TipoLido());
    fTipoCod.SetAsInteger(tipoCod);
    fTipoDocStr.SetAsString(TipoDoc::RepTipoDocToStr(tipoCod));
    fDocStr.SetAsString(TChaveNota{m_q.Fields(m_empr).AsInteger(), 0, m_q.Fields(m_compra).AsInteger()}.DocStr());
    const bool baixado = m_q.Fields(m_baixado).AsBoolean();
    fBaixado.SetAsBoolean(baixado);
    fBaixadoStr.SetAsString(RepBaixadoStr(baixado));
    const bool cancelado = m_q.Fields(m_cancelado).AsBoolean();
    fCancelado.SetAsBoolean(cancelado);
    fCanceladoStr.SetAsString(RepCanceladoStr(cancelado));
    fDocOrigStr.SetAsString(Xml() ? QStringLiteral("XML") : QStringLiteral("MANUAL"));
    const int destin = m_q.Fields(m_destin).AsInteger();
    if (destin == 0) {
        fDestinEmprRaz.Clear();
        return {};
    }
    if (!m_empresas) {
        const std::unique_ptr<TQ> e = m_conexao.Ab(QStringLiteral("select empr_cod, raz from empr"));
        if (!e)
            return QStringLiteral("Não foi possível ler os nomes das empresas de destino das notas.\n%1")
                .arg(m_conexao.UltimoErro());
        m_empresas.emplace();
        for (e->First(); !e->Eof(); e->Next())
            m_empresas->insert(e->Fields(0).AsInteger(), e->Fields(1).AsString());
    }
    const auto it = m_empresas->constFind(destin);
    fDestinEmprRaz.SetAsString(it != m_empresas->cend() ? *it : QStringLiteral("<NÃO ENCONTRADO>"));
    return {};
}
