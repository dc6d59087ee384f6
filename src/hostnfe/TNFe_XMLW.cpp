#include "TNFe_XMLW.h"

#include "CamposNFe.h"

#include <algorithm>
#include <functional>

namespace {

const QByteArray NsNFe = QByteArrayLiteral("http://www.portalfiscal.inf.br/nfe");

// The nearest ASCII of the characters beyond Latin-1 that typed texts commonly carry.
QString Ascii(char32_t c)
{
    switch (c) {
    case 0x2010: case 0x2011: case 0x2012: case 0x2013: case 0x2014: case 0x2015: case 0x2212: case 0x2022:
        return QStringLiteral("-");
    case 0x2018: case 0x2019: case 0x201A: case 0x201B: case 0x2032: return QStringLiteral("'");
    case 0x201C: case 0x201D: case 0x201E: case 0x201F: case 0x2033: return QStringLiteral("\"");
    case 0x2026: return QStringLiteral("...");
    case 0x20AC: return QStringLiteral("EUR");
    case 0x2122: return QStringLiteral("TM");
    default: break;
    }
    // A letter with a mark the Latin-1 range lacks ("ő", "ł" aside) keeps its base letter.
    const QString base = QString::fromUcs4(&c, 1).normalized(QString::NormalizationForm_KD);
    QString ascii;
    for (QChar b : base)
        if (b.unicode() >= 0x20 && b.unicode() < 0x7F)
            ascii += b;
    return ascii;
}

// Money with exactly `casas` decimals, from the exact value.
QByteArray Decimal(Money v, int casas)
{
    casas = std::clamp(casas, 0, 4);
    const Money r = v.roundTo(casas);
    qint64 escala = 1;
    for (int i = 0; i < casas; ++i)
        escala *= 10;
    const qint64 raw = r.raw() / (10000 / escala);
    const quint64 abs = raw < 0 ? quint64(-raw) : quint64(raw);
    QByteArray t = QByteArray::number(abs / quint64(escala));
    if (casas > 0)
        t += '.' + QByteArray::number(abs % quint64(escala)).rightJustified(casas, '0');
    return raw < 0 ? '-' + t : t;
}

// Quantities and rates: `casas` decimals; unit values (10) only as many as they need, at least 2.
QByteArray Decimal(double v, int casas)
{
    QByteArray t = QByteArray::number(v + 0.0, 'f', casas);   // + 0.0: no "-0"
    if (casas == 10) {
        while (t.endsWith('0') && t.size() - t.indexOf('.') > 3)
            t.chop(1);
    }
    return t;
}

QByteArray DataHora(const QDateTime &d)
{
    if (!d.isValid())
        return {};
    const int offset = d.offsetFromUtc();
    const int minutos = std::abs(offset) / 60;
    return (d.toString(QStringLiteral("yyyy-MM-ddTHH:mm:ss")) + (offset < 0 ? u'-' : u'+')
            + QStringLiteral("%1:%2").arg(minutos / 60, 2, 10, QLatin1Char('0')).arg(minutos % 60, 2, 10, QLatin1Char('0')))
        .toLatin1();
}

class TEscritor
{
public:
    TEscritor(QByteArray &saida, const QString &prefixo)
        : b(saida), m_pre(prefixo.isEmpty() ? QByteArray() : prefixo.toLatin1() + ':'), m_prefixo(prefixo.toLatin1())
    {
    }

    void Abrir(QLatin1String nome, const QByteArray &atributos = {})
    {
        b += '<';
        b += m_pre;
        b.append(nome.data(), nome.size());
        b += atributos;
        b += '>';
    }
    void Fechar(QLatin1String nome)
    {
        b += "</";
        b += m_pre;
        b.append(nome.data(), nome.size());
        b += '>';
    }
    void Bruto(QLatin1String nome, const QByteArray &valor)
    {
        Abrir(nome);
        b += valor;
        Fechar(nome);
    }
    // A text leaf, left out when nothing remains of the text.
    void Texto(QLatin1String nome, const QString &valor)
    {
        const QString t = TextoXML(valor);
        if (!t.isEmpty())
            Bruto(nome, t.toUtf8());
    }
    QByteArray Namespace() const
    {
        return (m_prefixo.isEmpty() ? QByteArray(" xmlns=\"") : " xmlns:" + m_prefixo + "=\"") + NsNFe + '"';
    }

    // One leaf; texts only when set, numbers always unless `opcional` and zero.
    template<class S>
    void Folha(const TCampoNFe<S> &c, const S &s, bool opcional)
    {
        std::visit(
            [&](auto membro) {
                const auto &v = s.*membro;
                using T = std::remove_cvref_t<decltype(v)>;
                if constexpr (std::is_same_v<T, QString>)
                    Texto(c.nome, v);
                else if constexpr (std::is_same_v<T, QDateTime>) {
                    if (v.isValid())
                        Bruto(c.nome, DataHora(v));
                } else if constexpr (std::is_integral_v<T>) {
                    if (!opcional || v != 0)
                        Bruto(c.nome, QByteArray::number(v));
                } else if (!opcional || v != T{}) {
                    Bruto(c.nome, Decimal(v, c.casas));
                }
            },
            c.membro);
    }

    // Every leaf of the table enclosed by `pai`, in order; `depois` runs after each one.
    template<class S>
    void Folhas(TCamposNFe<S> campos, const S &s, QLatin1String pai = {},
                const std::function<void(QLatin1String)> &depois = {}, const QList<QLatin1String> &omitirZero = {})
    {
        for (const TCampoNFe<S> &c : campos) {
            if (c.pai != pai || c.soLeitura)
                continue;
            Folha(c, s, omitirZero.contains(c.nome));
            if (depois)
                depois(c.nome);
        }
    }

    void Grupo(QLatin1String nome, const std::function<void()> &conteudo)
    {
        Abrir(nome);
        conteudo();
        Fechar(nome);
    }

    QByteArray &b;

private:
    QByteArray m_pre, m_prefixo;
};

using L = QLatin1String;

// A taxed group carries either the base and the rate or the quantity and its unit value; an
// untaxed one only the CST.
bool NoGrupo(QLatin1String nome, bool tributado, bool porQtde)
{
    static const QList<QLatin1String> qtdes{L("qBCProd"), L("vAliqProd"), L("qUnid"), L("vUnid")};
    const bool aliq = nome == L("vBC") || nome.startsWith(QLatin1Char('p'));
    return nome == L("CST") || (tributado && (porQtde ? !aliq : !qtdes.contains(nome)));
}

void EscreverContrib(TEscritor &e, const char *tributo, TCamposNFe<TNFeContrib> campos, const TNFeContrib &c)
{
    if (c.CST.isEmpty())
        return;
    const int cst = c.CST.toInt();
    const QByteArray grupo = QByteArray(tributo) + (cst == 1 || cst == 2 ? "Aliq" : cst == 3 ? "Qtde" : cst >= 4 && cst <= 9 ? "NT" : "Outr");
    e.Grupo(L(tributo), [&] {
        e.Grupo(L(grupo), [&] {
            const bool porQtde = grupo.endsWith("Qtde") || (grupo.endsWith("Outr") && c.qBCProd != 0);
            for (const TCampoNFe<TNFeContrib> &f : campos)
                if (NoGrupo(f.nome, !grupo.endsWith("NT"), porQtde))
                    e.Folha(f, c, false);
        });
    });
}

void EscreverICMS(TEscritor &e, const TNFeICMS &icms)
{
    const QByteArray grupo = icms.grupo.isEmpty() ? QByteArray("ICMS00") : icms.grupo.toLatin1();
    e.Grupo(L("ICMS"), [&] {
        e.Grupo(L(grupo), [&] {
            for (QString nome : CamposNFe::CamposDoGrupoICMS(QString::fromLatin1(grupo))) {
                const bool opcional = nome.endsWith(QLatin1Char('?'));
                nome.chop(opcional ? 1 : 0);
                if (const auto *c = AcharCampo(CamposNFe::ICMS(), nome, {}))
                    e.Folha(*c, icms, opcional);
            }
        });
    });
}

void EscreverIPI(TEscritor &e, const TNFeIPI &ipi)
{
    using namespace CamposNFe;
    e.Grupo(L("IPI"), [&] {
        e.Folha(IPI()[0], ipi, false);
        e.Texto(L("cEnq"), ipi.cEnq.isEmpty() ? QStringLiteral("999") : ipi.cEnq);
        const int cst = ipi.CST.toInt();
        const bool trib = cst == 0 || cst == 49 || cst == 50 || cst == 99;
        e.Grupo(trib ? L("IPITrib") : L("IPINT"), [&] {
            for (const auto &c : IPI().subspan(2))
                if (NoGrupo(c.nome, trib, ipi.qUnid != 0))
                    e.Folha(c, ipi, false);
        });
    });
}

void EscreverIBSCBS(TEscritor &e, const TNFeIBSCBS &t)
{
    using namespace CamposNFe;
    const auto sub = [&](QLatin1String nome) { e.Grupo(nome, [&] { e.Folhas(IBSCBS(), t, nome); }); };
    e.Grupo(L("IBSCBS"), [&] {
        e.Folhas(IBSCBS(), t, L("IBSCBS"));
        e.Grupo(L("gIBSCBS"), [&] {
            // The state's and the city's groups follow the base, the federal one the total.
            e.Folhas(IBSCBS(), t, L("gIBSCBS"), [&](QLatin1String nome) {
                if (nome == L("vBC")) {
                    sub(L("gIBSUF"));
                    sub(L("gIBSMun"));
                } else {
                    sub(L("gCBS"));
                }
            });
        });
    });
}

void EscreverItem(TEscritor &e, const TItem &original)
{
    using namespace CamposNFe;
    // The layout asks for a GTIN always: a product without one says so.
    TItem semGtin;
    if (original.cEAN.isEmpty() || original.cEANTrib.isEmpty()) {
        semGtin = original;
        for (QString *gtin : {&semGtin.cEAN, &semGtin.cEANTrib})
            if (gtin->isEmpty())
                *gtin = QStringLiteral("SEM GTIN");
    }
    const TItem &it = semGtin.nItem ? semGtin : original;
    e.Abrir(L("det"), " nItem=\"" + QByteArray::number(it.nItem) + '"');
    e.Grupo(L("prod"), [&] {
        e.Folhas(Prod(), it, {}, {}, {L("vFrete"), L("vSeg"), L("vDesc"), L("vOutro")});
    });
    e.Grupo(L("imposto"), [&] {
        if (it.vTotTrib != Money())
            e.Folha(*AcharCampo(Prod(), QStringView(u"vTotTrib"), QStringView(u"imposto")), it, false);
        EscreverICMS(e, it.ICMS);
        if (it.IPI.presente)
            EscreverIPI(e, it.IPI);
        EscreverContrib(e, "PIS", PIS(), it.PIS);
        EscreverContrib(e, "COFINS", COFINS(), it.COFINS);
        if (it.ICMSUFDest.presente)
            e.Grupo(L("ICMSUFDest"), [&] { e.Folhas(ICMSUFDest(), it.ICMSUFDest); });
        if (it.IBSCBS.presente)
            EscreverIBSCBS(e, it.IBSCBS);
    });
    if (it.pDevol != 0 || it.vIPIDevol != Money()) {
        e.Grupo(L("impostoDevol"), [&] {
            e.Folhas(Prod(), it, L("impostoDevol"));
            e.Grupo(L("IPI"), [&] { e.Folhas(Prod(), it, L("IPI")); });
        });
    }
    e.Folhas(Prod(), it, L("det"));
    e.Fechar(L("det"));
}

void EscreverIBSCBSTot(TEscritor &e, const TNFeIBSCBSTot &t)
{
    // The amounts the model does not keep are written as zero.
    const auto zeros = [&](std::initializer_list<const char *> nomes) {
        for (const char *nome : nomes)
            e.Bruto(L(nome), QByteArrayLiteral("0.00"));
    };
    const auto folhas = [&](const char *pai) { e.Folhas(CamposNFe::IBSCBSTot(), t, L(pai)); };
    e.Grupo(L("IBSCBSTot"), [&] {
        folhas("IBSCBSTot");
        e.Grupo(L("gIBS"), [&] {
            for (const char *esfera : {"gIBSUF", "gIBSMun"})
                e.Grupo(L(esfera), [&] { zeros({"vDif", "vDevTrib"}); folhas(esfera); });
            folhas("gIBS");
            zeros({"vCredPresCondSus"});
        });
        e.Grupo(L("gCBS"), [&] {
            zeros({"vDif", "vDevTrib"});
            folhas("gCBS");
            zeros({"vCredPres", "vCredPresCondSus"});
        });
    });
}

void EscreverTransp(TEscritor &e, const TNFeTransp &t)
{
    const auto sub = [&](QLatin1String nome) { e.Grupo(nome, [&] { e.Folhas(CamposNFe::Transp(), t, nome); }); };
    e.Grupo(L("transp"), [&] {
        e.Folhas(CamposNFe::Transp(), t, L("transp"));
        if (!t.CNPJ.isEmpty() || !t.CPF.isEmpty() || !t.xNome.isEmpty())
            sub(L("transporta"));
        if (!t.placa.isEmpty())
            e.Grupo(L("veicTransp"), [&] {
                e.Folhas(CamposNFe::Transp(), t, L("veicTransp"));
                e.Texto(L("RNTC"), t.RNTC);
            });
        for (const TNFeReboque &r : t.reboque)
            e.Grupo(L("reboque"), [&] {
                e.Texto(L("placa"), r.placa);
                e.Texto(L("UF"), r.UF);
                e.Texto(L("RNTC"), r.RNTC);
            });
        if (t.qVol != 0 || !t.esp.isEmpty() || t.pesoL != 0 || t.pesoB != 0)
            sub(L("vol"));
    });
}

void EscreverInfNFe(TEscritor &e, const TnfeProc &nfe)
{
    using namespace CamposNFe;
    e.Abrir(L("infNFe"), " Id=\"NFe" + nfe.chave.toLatin1() + "\" versao=\""
                             + (nfe.versao.isEmpty() ? QByteArray("4.00") : nfe.versao.toLatin1()) + '"');
    e.Grupo(L("ide"), [&] {
        e.Folhas(Ide(), nfe.ide, {}, [&](QLatin1String nome) {
            // The referenced keys follow the contingency's leaves.
            if (nome == L("xJust"))
                for (const QString &ref : nfe.ide.refNFe)
                    e.Grupo(L("NFref"), [&] { e.Texto(L("refNFe"), ref); });
        });
    });
    // The address goes right after the leaf `antes`.
    const auto pessoa = [&](QLatin1String grupo, auto campos, const auto &p, QLatin1String antes, QLatin1String endereco) {
        e.Grupo(grupo, [&] {
            e.Folhas(campos, p, {}, [&](QLatin1String nome) {
                if (nome == antes)
                    e.Grupo(endereco, [&] { e.Folhas(Endereco(), p.ender); });
            });
        });
    };
    pessoa(L("emit"), Emit(), nfe.emitente, L("xFant"), L("enderEmit"));
    const TPess_Dest &d = nfe.destinatario;
    if (!d.CNPJ.isEmpty() || !d.CPF.isEmpty() || !d.idEstrangeiro.isEmpty())
        pessoa(L("dest"), Dest(), d, L("xNome"), L("enderDest"));
    for (int i = 0; i < nfe.itens.Count(); ++i)
        EscreverItem(e, nfe.itens.GetItem(i));
    e.Grupo(L("total"), [&] {
        e.Grupo(L("ICMSTot"), [&] { e.Folhas(ICMSTot(), nfe.ICMSTot); });
        if (nfe.IBSCBSTot.presente)
            EscreverIBSCBSTot(e, nfe.IBSCBSTot);
    });
    EscreverTransp(e, nfe.transp);
    // The notes issued here carry no payment.
    e.Grupo(L("pag"), [&] {
        e.Grupo(L("detPag"), [&] {
            e.Bruto(L("tPag"), QByteArrayLiteral("90"));
            e.Bruto(L("vPag"), QByteArrayLiteral("0.00"));
        });
    });
    if (!TextoLimpo(nfe.infAdFisco).isEmpty() || !TextoLimpo(nfe.infCpl).isEmpty())
        e.Grupo(L("infAdic"), [&] { e.Folhas(CamposNFe::InfAdic(), nfe); });
    e.Fechar(L("infNFe"));
}

} // namespace

QByteArray TNFe_XMLW::Documento(const TnfeProc &nfe) const
{
    return QByteArrayLiteral("<?xml version=\"1.0\" encoding=\"UTF-8\"?>") + ElementoNFe(nfe);
}

QByteArray TNFe_XMLW::ElementoNFe(const TnfeProc &nfe, const QByteArray &assinatura) const
{
    QByteArray xml;
    xml.reserve(4096 + nfe.itens.Count() * 1500);
    TEscritor e(xml, m_prefixo);
    e.Abrir(L("NFe"), e.Namespace());
    EscreverInfNFe(e, nfe);
    xml += assinatura;
    e.Fechar(L("NFe"));
    return xml;
}

QByteArray TNFe_XMLW::ElementoProtNFe(const TNFeProt &prot) const
{
    QByteArray xml;
    TEscritor e(xml, m_prefixo);
    e.Abrir(L("protNFe"), e.Namespace() + " versao=\"4.00\"");
    e.Grupo(L("infProt"), [&] { e.Folhas(CamposNFe::Prot(), prot); });
    e.Fechar(L("protNFe"));
    return xml;
}

QString TextoLimpo(QStringView texto)
{
    QString saida;
    saida.reserve(texto.size());
    bool branco = false;
    const auto por = [&](const QString &s) {
        for (QChar c : s) {
            if (c.isSpace()) {
                branco = !saida.isEmpty();
                continue;
            }
            if (branco)
                saida += u' ';
            branco = false;
            saida += c;
        }
    };
    for (char32_t c : texto.toUcs4()) {
        if (c == u'\t' || c == u'\n' || c == u'\r')
            por(QStringLiteral(" "));
        else if (c < 0x20 || (c >= 0x7F && c <= 0x9F))
            continue;
        else if (c <= 0xFF)
            por(QString(QChar(c)));
        else if (QChar::isSpace(c))
            por(QStringLiteral(" "));
        else
            por(Ascii(c));
    }
    return saida;
}

QString TextoXML(QStringView texto)
{
    const QString limpo = TextoLimpo(texto);
    QString saida;
    saida.reserve(limpo.size() + 16);
    for (QChar c : limpo) {
        switch (c.unicode()) {
        case u'&': saida += QLatin1String("&amp;"); break;
        case u'<': saida += QLatin1String("&lt;"); break;
        case u'>': saida += QLatin1String("&gt;"); break;
        case u'"': saida += QLatin1String("&quot;"); break;
        case u'\'': saida += QLatin1String("&#39;"); break;
        default: saida += c;
        }
    }
    return saida;
}
