#include "TNFe_XMLI.h"

#include "CamposNFe.h"

#include <QFile>
#include <QFileInfo>
#include <QXmlStreamReader>

#include <cmath>
#include <limits>
#include <optional>

namespace {

const QString NsNFe = QStringLiteral("http://www.portalfiscal.inf.br/nfe");

// Plain decimal text ([-]digits[.digits], "18.0000", "0.0123456789") with at most 15 significant
// digits: its digits as one integer and how many of them follow the point. Such a number is read
// exactly by integer arithmetic, and as a double by one division that rounds as strtod would;
// anything else takes the general readers.
struct TDecimal
{
    qint64 mantissa = 0;
    int casas = 0;
};

std::optional<TDecimal> DecimalCurto(QStringView t)
{
    const bool negativo = t.startsWith(u'-');
    if (t.size() == qsizetype(negativo) || t.back() == u'.')
        return std::nullopt;
    TDecimal d;
    int digitos = 0;
    bool ponto = false;
    for (qsizetype i = negativo; i < t.size(); ++i) {
        const char16_t c = t[i].unicode();
        if (c >= u'0' && c <= u'9') {
            d.mantissa = d.mantissa * 10 + (c - u'0');
            digitos += d.mantissa > 0;
            d.casas += ponto;
        } else if (c == u'.' && !ponto) {
            ponto = true;
        } else {
            return std::nullopt;
        }
        if (digitos > 15 || d.casas > 22)
            return std::nullopt;
    }
    if (negativo)
        d.mantissa = -d.mantissa;
    return d;
}

double LerDouble(QStringView t, bool &ok)
{
    static constexpr double potencias[] = {1, 1e1, 1e2, 1e3, 1e4, 1e5, 1e6, 1e7, 1e8, 1e9, 1e10, 1e11,
                                           1e12, 1e13, 1e14, 1e15, 1e16, 1e17, 1e18, 1e19, 1e20, 1e21, 1e22};
    if (const auto d = DecimalCurto(t)) {
        ok = true;
        return double(d->mantissa) / potencias[d->casas];
    }
    const double v = t.toDouble(&ok);
    ok = ok && std::isfinite(v);   // "nan" and "inf" are no rates
    return v;
}

std::optional<Money> LerMoney(QStringView t)
{
    static constexpr qint64 escala[] = {10000, 1000, 100, 10, 1};
    const auto d = DecimalCurto(t);
    if (d && d->casas <= 4 && std::abs(d->mantissa) <= std::numeric_limits<qint64>::max() / escala[d->casas])
        return Money::fromRaw(d->mantissa * escala[d->casas]);
    return Money::parse(t);
}

// One pass over the document, descending only into the groups the model holds; everything else
// is skipped. Every token passes through Avancar, which keeps the depth and refuses a DTD.
class TLeitorNFe
{
public:
    // Bytes, or text already decoded.
    template<class T>
    TLeitorNFe(const T &xml, const QString &nome, TnfeProc &nfe) : r(xml), m_nome(nome), m_nfe(nfe) {}

    QString Ler()
    {
        if (!Filho())
            return ErroFinal();
        const QStringView ns = r.namespaceUri();
        if (!ns.isEmpty() && ns != NsNFe)
            return QStringLiteral("%1: o namespace '%2' não é o da NF-e (%3)").arg(m_nome, ns.toString(), NsNFe);
        if (r.name() == QLatin1String("nfeProc"))
            LerProc();
        else if (r.name() == QLatin1String("NFe"))
            LerNFe();
        else
            return QStringLiteral("%1: não é uma NF-e: o elemento raiz é <%2>, não <nfeProc> nem <NFe>")
                .arg(m_nome, r.name().toString());
        while (m_erro.isEmpty() && Avancar() != QXmlStreamReader::Invalid && !r.atEnd()) {
        }
        if (!m_erro.isEmpty() || r.hasError())
            return ErroFinal();
        if (!m_temInfNFe)
            return QStringLiteral("%1: NF-e sem o grupo <infNFe>").arg(m_nome);
        return {};
    }

private:
    QXmlStreamReader::TokenType Avancar()
    {
        const auto t = r.readNext();
        if (t == QXmlStreamReader::StartElement && ++m_prof > TNFe_XMLI::ProfundidadeMaxima)
            Falhar(QStringLiteral("%1: elementos aninhados além de %2 níveis").arg(m_nome).arg(TNFe_XMLI::ProfundidadeMaxima));
        else if (t == QXmlStreamReader::EndElement)
            --m_prof;
        else if (t == QXmlStreamReader::DTD)
            Falhar(QStringLiteral("%1: contém DTD, que não é aceita em NF-e").arg(m_nome));
        return m_erro.isEmpty() ? t : QXmlStreamReader::Invalid;
    }

    void Falhar(const QString &erro)
    {
        if (m_erro.isEmpty())
            m_erro = erro;
        r.raiseError(erro);
    }

    QString ErroFinal() const
    {
        if (!m_erro.isEmpty())
            return m_erro;
        if (r.error() == QXmlStreamReader::PrematureEndOfDocumentError)
            return QStringLiteral("%1: o XML acaba antes do fim do documento (arquivo truncado)").arg(m_nome);
        if (r.hasError())
            return QStringLiteral("%1: XML mal formado na linha %2, coluna %3 (%4)")
                .arg(m_nome)
                .arg(r.lineNumber())
                .arg(r.columnNumber())
                .arg(r.errorString());
        return QStringLiteral("%1: o arquivo não tem nenhum elemento XML").arg(m_nome);
    }

    // The next child element of the current one; false at the current one's end or on a fault.
    bool Filho()
    {
        for (;;) {
            switch (Avancar()) {
            case QXmlStreamReader::StartElement: return true;
            case QXmlStreamReader::EndElement:
            case QXmlStreamReader::Invalid:
            case QXmlStreamReader::EndDocument: return false;
            default: break;
            }
        }
    }

    // The text of the current element, trimmed; elements inside it are skipped.
    QStringView Texto(bool guardar = true)
    {
        m_texto.resize(0);   // keeps the capacity: one buffer for every leaf
        for (int nivel = 1; nivel > 0;) {
            switch (Avancar()) {
            case QXmlStreamReader::Characters:
                if (guardar && nivel == 1)
                    m_texto += r.text();
                break;
            case QXmlStreamReader::StartElement: ++nivel; break;
            case QXmlStreamReader::EndElement: --nivel; break;
            case QXmlStreamReader::Invalid:
            case QXmlStreamReader::EndDocument: return {};
            default: break;
            }
        }
        return QStringView(m_texto).trimmed();
    }

    void Pular() { Texto(false); }

    void ValorInvalido(QLatin1String elemento, QStringView texto)
    {
        const QString onde = m_item > 0 ? QStringLiteral(" do item %1").arg(m_item) : QString();
        Falhar(QStringLiteral("%1: valor inválido em <%2>%3: '%4'").arg(m_nome, elemento, onde, texto.left(60).toString()));
    }

    template<class T>
    bool Converter(QStringView t, T &destino)
    {
        if (t.isEmpty()) {
            destino = T{};
            return true;
        }
        bool ok = false;
        if constexpr (std::is_same_v<T, QString>) {
            destino = t.toString();
            ok = true;
        } else if constexpr (std::is_same_v<T, Money>) {
            const auto m = LerMoney(t);
            ok = m.has_value();
            destino = m.value_or(Money());
        } else if constexpr (std::is_same_v<T, double>) {
            destino = LerDouble(t, ok);
        } else if constexpr (std::is_same_v<T, int>) {
            destino = t.toInt(&ok);
        } else if constexpr (std::is_same_v<T, qint64>) {
            destino = t.toLongLong(&ok);
        } else {
            // Date-time with its offset, or the date alone of older layouts.
            destino = t.size() == 10 ? QDateTime(QDate::fromString(t.toString(), Qt::ISODate), QTime(0, 0))
                                     : QDateTime::fromString(t.toString(), Qt::ISODate);
            ok = destino.isValid();
        }
        return ok;
    }

    // The current element as a leaf of the table, when it is one.
    template<class S>
    bool Folha(TCamposNFe<S> campos, S &s, QStringView pai)
    {
        const TCampoNFe<S> *c = AcharCampo(campos, r.name(), pai);
        if (!c)
            return false;
        const QStringView t = Texto();
        std::visit([&](auto membro) {
            if (!Converter(t, s.*membro))
                ValorInvalido(c->nome, t);
        }, c->membro);
        return true;
    }

    // The leaves of a group; with `aninhado`, its subgroups are read into the same record.
    template<class S>
    void Grupo(TCamposNFe<S> campos, S &s, QStringView pai, bool aninhado = false)
    {
        while (Filho()) {
            if (Folha(campos, s, pai))
                continue;
            if (aninhado)
                Grupo(campos, s, r.name().toString(), true);
            else
                Pular();
        }
    }

    bool Nome(const char *nome) const { return r.name() == QLatin1String(nome); }

    void LerProc()
    {
        while (Filho()) {
            if (Nome("NFe")) {
                LerNFe();
            } else if (Nome("protNFe")) {
                m_nfe.prot.presente = true;
                Grupo(CamposNFe::Prot(), m_nfe.prot, u"protNFe", true);
            } else {
                Pular();
            }
        }
    }

    void LerNFe()
    {
        while (Filho()) {
            if (Nome("infNFe")) {
                LerInfNFe();
            } else {
                m_nfe.assinado = m_nfe.assinado || Nome("Signature");
                Pular();
            }
        }
    }

    void LerInfNFe()
    {
        m_temInfNFe = true;
        const QXmlStreamAttributes atributos = r.attributes();
        const QStringView id = atributos.value(QLatin1String("Id"));
        m_nfe.chave = (id.startsWith(QLatin1String("NFe")) ? id.mid(3) : id).toString();
        m_nfe.versao = atributos.value(QLatin1String("versao")).toString();
        using namespace CamposNFe;
        while (Filho()) {
            if (Nome("ide"))
                LerIde();
            else if (Nome("emit"))
                LerPessoa(Emit(), m_nfe.emitente, "enderEmit");
            else if (Nome("dest"))
                LerPessoa(Dest(), m_nfe.destinatario, "enderDest");
            else if (Nome("det"))
                LerItem();
            else if (Nome("total"))
                LerTotal();
            else if (Nome("transp"))
                Grupo(Transp(), m_nfe.transp, u"transp", true);
            else if (Nome("infAdic"))
                Grupo(InfAdic(), m_nfe, u"infAdic");
            else
                Pular();
        }
    }

    void LerIde()
    {
        while (Filho()) {
            if (Folha(CamposNFe::Ide(), m_nfe.ide, u"ide"))
                continue;
            if (!Nome("NFref")) {
                Pular();
                continue;
            }
            while (Filho()) {
                if (Nome("refNFe"))
                    m_nfe.ide.refNFe << Texto().toString();
                else
                    Pular();
            }
        }
    }

    template<class S>
    void LerPessoa(TCamposNFe<S> campos, S &pessoa, const char *endereco)
    {
        while (Filho()) {
            if (Folha(campos, pessoa, {}))
                continue;
            if (Nome(endereco))
                Grupo(CamposNFe::Endereco(), pessoa.ender, {});
            else
                Pular();
        }
    }

    void LerItem()
    {
        TItem &it = m_nfe.itens.Add();
        const QStringView nItem = r.attributes().value(QLatin1String("nItem"));
        if (!Converter(nItem, it.nItem))
            return ValorInvalido(QLatin1String("det nItem"), nItem);
        m_item = it.nItem;
        using namespace CamposNFe;
        while (Filho()) {
            if (Folha(Prod(), it, u"det"))
                continue;
            if (Nome("prod"))
                Grupo(Prod(), it, u"prod");
            else if (Nome("imposto"))
                LerImposto(it);
            else if (Nome("impostoDevol"))
                Grupo(Prod(), it, u"impostoDevol", true);
            else
                Pular();
        }
        for (QString *gtin : {&it.cEAN, &it.cEANTrib})
            if (*gtin == QLatin1String("SEM GTIN"))
                gtin->clear();
        m_item = 0;
    }

    void LerImposto(TItem &it)
    {
        using namespace CamposNFe;
        while (Filho()) {
            if (Folha(Prod(), it, u"imposto")) {
                continue;
            } else if (Nome("ICMS")) {
                while (Filho()) {
                    it.ICMS.grupo = r.name().toString();
                    Grupo(ICMS(), it.ICMS, {});
                }
            } else if (Nome("IPI")) {
                it.IPI.presente = true;
                Grupo(IPI(), it.IPI, {}, true);
            } else if (Nome("PIS")) {
                Grupo(PIS(), it.PIS, {}, true);
            } else if (Nome("COFINS")) {
                Grupo(COFINS(), it.COFINS, {}, true);
            } else if (Nome("ICMSUFDest")) {
                it.ICMSUFDest.presente = true;
                Grupo(ICMSUFDest(), it.ICMSUFDest, {});
            } else if (Nome("IBSCBS")) {
                it.IBSCBS.presente = true;
                Grupo(IBSCBS(), it.IBSCBS, u"IBSCBS", true);
            } else {
                Pular();
            }
        }
    }

    void LerTotal()
    {
        while (Filho()) {
            if (Nome("ICMSTot")) {
                Grupo(CamposNFe::ICMSTot(), m_nfe.ICMSTot, {});
            } else if (Nome("IBSCBSTot")) {
                m_nfe.IBSCBSTot.presente = true;
                Grupo(CamposNFe::IBSCBSTot(), m_nfe.IBSCBSTot, u"IBSCBSTot", true);
            } else {
                Pular();
            }
        }
    }

    QXmlStreamReader r;
    const QString &m_nome;
    TnfeProc &m_nfe;
    QString m_erro;
    QString m_texto;
    int m_prof = 0;
    int m_item = 0;
    bool m_temInfNFe = false;
};

QByteArrayView SemBOM(QByteArrayView xml)
{
    return xml.startsWith("\xEF\xBB\xBF") ? xml.sliced(3) : xml;
}

// What can be told before parsing: nothing in it, or something that does not start as XML.
QString ErroConteudo(const QByteArray &xml, const QString &nome)
{
    const QByteArrayView resto = SemBOM(xml).trimmed();
    if (resto.isEmpty())
        return QStringLiteral("%1: o arquivo está vazio").arg(nome);
    if (!resto.startsWith('<'))
        return QStringLiteral("%1: não é um arquivo XML").arg(nome);
    return {};
}

// UTF-8, the encoding NF-e requires, when the declaration names no other.
bool EmUTF8(QByteArrayView xml)
{
    if (!xml.startsWith("<?xml"))
        return true;
    const QByteArray declaracao = xml.first(std::max<qsizetype>(xml.indexOf("?>"), 0)).toByteArray().toLower();
    const qsizetype encoding = declaracao.indexOf("encoding");
    return encoding < 0 || declaracao.indexOf("utf-8", encoding) > 0;
}

} // namespace

bool TNFe_XMLI::ImportarDoArq(const QString &FileName)
{
    m_nfe = TnfeProc{};
    const QFileInfo info(FileName);
    QFile arquivo(FileName);
    const auto grandeDemais = [&](qint64 tamanho) {
        return QStringLiteral("%1: arquivo grande demais para uma NF-e (%2 MB; o limite é %3 MB)")
            .arg(FileName)
            .arg(tamanho / (1024 * 1024))
            .arg(TamanhoMaximo / (1024 * 1024));
    };
    if (!info.exists())
        m_erro = QStringLiteral("%1: arquivo não encontrado").arg(FileName);
    else if (info.isDir())
        m_erro = QStringLiteral("%1: é uma pasta, não um arquivo").arg(FileName);
    else if (!info.isFile())   // a device or a pipe could block or never end
        m_erro = QStringLiteral("%1: não é um arquivo comum").arg(FileName);
    else if (info.size() > TamanhoMaximo)
        m_erro = grandeDemais(info.size());
    else if (!arquivo.open(QIODevice::ReadOnly))
        m_erro = QStringLiteral("%1: não foi possível abrir o arquivo (%2)").arg(FileName, arquivo.errorString());
    else if (const QByteArray xml = arquivo.read(std::min(info.size(), TamanhoMaximo) + 1); arquivo.error() != QFileDevice::NoError)
        m_erro = QStringLiteral("%1: não foi possível ler o arquivo (%2)").arg(FileName, arquivo.errorString());
    else if (xml.size() > TamanhoMaximo)
        m_erro = grandeDemais(xml.size());
    else
        return ImportarDoTexto(xml, FileName);
    return false;
}

bool TNFe_XMLI::ImportarDoTexto(const QByteArray &xml, const QString &nomeParaErro)
{
    m_nfe = TnfeProc{};
    m_erro = ErroConteudo(xml, nomeParaErro);
    // Handed bytes, the tokenizer spends a quarter of its time decoding them piece by piece.
    const QByteArrayView corpo = SemBOM(xml);
    if (m_erro.isEmpty() && EmUTF8(corpo))
        m_erro = TLeitorNFe(QString::fromUtf8(corpo), nomeParaErro, m_nfe).Ler();
    else if (m_erro.isEmpty())
        m_erro = TLeitorNFe(xml, nomeParaErro, m_nfe).Ler();
    if (m_erro.isEmpty())
        return true;
    m_nfe = TnfeProc{};
    return false;
}
