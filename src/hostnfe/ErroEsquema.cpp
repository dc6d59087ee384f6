#include "ErroEsquema.h"

#include <QRegularExpression>
#include <QStringList>

#include <libxml/tree.h>

namespace {

QString Texto(const xmlChar *s)
{
    return s ? QString::fromUtf8(reinterpret_cast<const char *>(s)) : QString();
}

QString Texto(const char *s)
{
    return s ? QString::fromUtf8(s) : QString();
}

// "'NCM' (item 3)": the element's name and the item number of the enclosing det.
QString Local(const xmlNode *no)
{
    QString item;
    for (const xmlNode *p = no; p; p = p->parent) {
        if (p->type == XML_ELEMENT_NODE && xmlStrEqual(p->name, BAD_CAST "det")) {
            xmlChar *n = xmlGetProp(p, BAD_CAST "nItem");
            if (n)
                item = QStringLiteral(" (item %1)").arg(Texto(n));
            xmlFree(n);
            break;
        }
    }
    return QStringLiteral("'%1'%2").arg(Texto(no->name), item);
}

// The attribute libxml2 names in "Element 'x', attribute 'y': ...", or empty.
QString Atributo(const QString &mensagem)
{
    static const QRegularExpression atributo(QStringLiteral("^Element '[^']*', attribute '([^']+)'"));
    return atributo.match(mensagem).captured(1);
}

QString Onde(const xmlNode *no, const QString &atributo)
{
    if (!no)
        return QStringLiteral("Documento");
    if (!atributo.isEmpty())
        return QStringLiteral("Atributo '%1' do elemento %2").arg(atributo, Local(no));
    return QStringLiteral("Elemento ") + Local(no);
}

// A long text (a whole infCpl) cut short so the line stays readable.
QString Curto(const QString &valor)
{
    constexpr int kMaximo = 60;
    return valor.size() <= kMaximo ? valor : valor.left(kMaximo) + QStringLiteral("...");
}

QString Valor(const xmlNode *no)
{
    if (!no)
        return {};
    xmlChar *conteudo = xmlNodeGetContent(no);
    QString v = Texto(conteudo);
    xmlFree(conteudo);
    return v;
}

// The names in libxml2's "Expected is ( {ns}a, {ns}b )", without their namespaces.
QStringList Esperados(const QString &mensagem)
{
    static const QRegularExpression lista(QStringLiteral("Expected is (?:one of )?\\(\\s*(.*)\\s*\\)"));
    static const QRegularExpression ns(QStringLiteral("\\{[^}]*\\}"));
    const QRegularExpressionMatch m = lista.match(mensagem);
    if (!m.hasMatch())
        return {};
    QStringList nomes = m.captured(1).split(QLatin1Char(','), Qt::SkipEmptyParts);
    for (QString &n : nomes)
        n = n.remove(ns).trimmed();
    return nomes;
}

QString Aspas(const QStringList &nomes)
{
    QStringList r;
    for (const QString &n : nomes)
        r << QStringLiteral("'%1'").arg(n);
    return r.join(QStringLiteral(", "));
}

QString ConteudoErrado(const xmlError &erro, const xmlNode *no)
{
    const QString mensagem = Texto(erro.message);
    const QStringList esperados = Esperados(mensagem);
    if (mensagem.contains(QLatin1String("Missing child"))) {
        const QString em = no ? QStringLiteral("Em ") + Local(no) : QStringLiteral("No documento");
        if (esperados.size() == 1)
            return QStringLiteral("%1: falta o elemento '%2'").arg(em, esperados[0]);
        return QStringLiteral("%1: falta um dos elementos %2").arg(em, Aspas(esperados));
    }
    const QString pai = no && no->parent && no->parent->type == XML_ELEMENT_NODE
                            ? QStringLiteral("Em ") + Local(no->parent)
                            : QStringLiteral("No documento");
    const QString elemento = no ? Texto(no->name) : QString();
    if (esperados.isEmpty())
        return QStringLiteral("%1: o elemento '%2' não é esperado aqui").arg(pai, elemento);
    return QStringLiteral("%1: o elemento '%2' não é esperado aqui; esperado: %3").arg(pai, elemento, Aspas(esperados));
}

} // namespace

QString ErroEsquema::DocumentoMalFormado(int linha)
{
    return QStringLiteral("O documento não é um XML válido (erro na linha %1)").arg(linha);
}

bool ErroEsquema::FaltaSoAssinatura(const xmlError &erro)
{
    const auto *no = static_cast<const xmlNode *>(erro.node);
    return erro.code == XML_SCHEMAV_ELEMENT_CONTENT && no && xmlStrEqual(no->name, BAD_CAST "NFe")
           && Texto(erro.message).contains(QLatin1String("Missing child"))
           && Esperados(Texto(erro.message)).endsWith(QStringLiteral("Signature"));
}

QString ErroEsquema::Descrever(const xmlError &erro)
{
    if (erro.domain == XML_FROM_PARSER || erro.domain == XML_FROM_IO)
        return DocumentoMalFormado(erro.line);
    const auto *no = static_cast<const xmlNode *>(erro.node);
    const QString atributo = Atributo(Texto(erro.message));
    const QString onde = Onde(no, atributo);
    // Facet errors carry the value first and the facet next, except the length facets of an
    // element, which carry the lengths only.
    QString valor = Texto(erro.str1);
    QString regra = Texto(erro.str2);
    const bool comprimento = erro.code >= XML_SCHEMAV_CVC_LENGTH_VALID && erro.code <= XML_SCHEMAV_CVC_MAXLENGTH_VALID;
    if (comprimento && atributo.isEmpty())
        valor = Valor(no);
    else if (comprimento)
        regra = Texto(erro.str3);
    valor = Curto(valor);
    switch (erro.code) {
    case XML_SCHEMAV_CVC_PATTERN_VALID:
        return QStringLiteral("%1: o valor '%2' não segue o formato exigido (%3)").arg(onde, valor, regra);
    case XML_SCHEMAV_CVC_ENUMERATION_VALID:
        return QStringLiteral("%1: o valor '%2' não é um dos valores aceitos (%3)").arg(onde, valor, regra.remove(QLatin1Char('\'')));
    case XML_SCHEMAV_CVC_LENGTH_VALID:
        return QStringLiteral("%1: o valor '%2' deve ter exatamente %3 caracteres").arg(onde, valor, regra);
    case XML_SCHEMAV_CVC_MINLENGTH_VALID:
        return QStringLiteral("%1: o valor '%2' deve ter ao menos %3 caracteres").arg(onde, valor, regra);
    case XML_SCHEMAV_CVC_MAXLENGTH_VALID:
        return QStringLiteral("%1: o valor '%2' deve ter no máximo %3 caracteres").arg(onde, valor, regra);
    case XML_SCHEMAV_CVC_MININCLUSIVE_VALID:
    case XML_SCHEMAV_CVC_MINEXCLUSIVE_VALID:
        return QStringLiteral("%1: o valor '%2' é menor que o mínimo aceito (%3)").arg(onde, valor, regra);
    case XML_SCHEMAV_CVC_MAXINCLUSIVE_VALID:
    case XML_SCHEMAV_CVC_MAXEXCLUSIVE_VALID:
        return QStringLiteral("%1: o valor '%2' é maior que o máximo aceito (%3)").arg(onde, valor, regra);
    case XML_SCHEMAV_CVC_TOTALDIGITS_VALID:
        return QStringLiteral("%1: o valor '%2' tem mais de %3 dígitos").arg(onde, valor, regra);
    case XML_SCHEMAV_CVC_FRACTIONDIGITS_VALID:
        return QStringLiteral("%1: o valor '%2' tem mais de %3 casas decimais").arg(onde, valor, regra);
    case XML_SCHEMAV_ELEMENT_CONTENT:
        return ConteudoErrado(erro, no);
    case XML_SCHEMAV_CVC_COMPLEX_TYPE_4:
        return QStringLiteral("%1: falta o atributo '%2'").arg(onde, Texto(erro.str1));
    case XML_SCHEMAV_CVC_COMPLEX_TYPE_3_2_1:
    case XML_SCHEMAV_CVC_COMPLEX_TYPE_3_2_2:
        return QStringLiteral("%1: atributo não aceito aqui").arg(onde);
    case XML_SCHEMAV_CVC_DATATYPE_VALID_1_2_1:
        return QStringLiteral("%1: o valor '%2' não é válido para o tipo exigido").arg(onde, valor);
    case XML_SCHEMAV_CVC_ELT_1:
        return QStringLiteral("O documento não é do tipo esperado (elemento raiz '%1')").arg(no ? Texto(no->name) : QString());
    case XML_SCHEMAV_CVC_COMPLEX_TYPE_2_1:
    case XML_SCHEMAV_CVC_COMPLEX_TYPE_2_3:
        return QStringLiteral("%1: não aceita texto aqui").arg(onde);
    default:
        return QStringLiteral("%1: não segue o esquema da NF-e").arg(onde);
    }
}
