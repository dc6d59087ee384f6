#include "GeradorNFe.h"

#include "CamposNFe.h"
#include "ChaveNFe.h"
#include "Valores.h"

#include <QSaveFile>
#include <QTimeZone>
#include <QXmlStreamWriter>

#include <functional>

// The sample document names only the fields it sets; the rest stay zero.
#pragma GCC diagnostic ignored "-Wmissing-field-initializers"

namespace {

const QString NsNFe = QStringLiteral("http://www.portalfiscal.inf.br/nfe");
const QString NsDsig = QStringLiteral("http://www.w3.org/2000/09/xmldsig#");

// Exact for money; rounded half to even to the places asked for.
template<class T>
QString Decimal(T v, int casas)
{
    return FormatFloat(casas ? QStringLiteral("0.") + QString(casas, QLatin1Char('0')) : QStringLiteral("0"), v)
        .replace(QLatin1Char(','), QLatin1Char('.'));
}

class TEscritor
{
public:
    TEscritor(QByteArray *saida, const OpcoesGeracao &op) : w(saida), m_ns(NsNFe)
    {
        w.writeStartDocument(QStringLiteral("1.0"));
        if (op.prefixo.isEmpty())
            w.writeDefaultNamespace(NsNFe);
        else
            w.writeNamespace(NsNFe, op.prefixo);
    }
    ~TEscritor() { w.writeEndDocument(); }

    void Abrir(const QString &nome) { w.writeStartElement(m_ns, nome); }
    void Fechar() { w.writeEndElement(); }
    void Texto(const QString &nome, const QString &valor) { w.writeTextElement(m_ns, nome, valor); }
    void Atributo(const QString &nome, const QString &valor) { w.writeAttribute(nome, valor); }
    // One leaf; texts only when set, numbers always unless `opcional` and zero.
    template<class S>
    void Folha(const TCampoNFe<S> &c, const S &s, bool opcional)
    {
        std::visit(
            [&](auto membro) {
                const auto &v = s.*membro;
                using T = std::remove_cvref_t<decltype(v)>;
                QString texto;
                if constexpr (std::is_same_v<T, QString>)
                    texto = v;
                else if constexpr (std::is_same_v<T, QDateTime>)
                    texto = v.toString(Qt::ISODate);
                else if constexpr (std::is_integral_v<T>)
                    texto = opcional && v == 0 ? QString() : QString::number(v);
                else
                    texto = opcional && v == T{} ? QString() : Decimal(v, c.casas);
                if (!texto.isEmpty())
                    Texto(c.nome, texto);
            },
            c.membro);
    }

    // Every leaf of the table enclosed by `pai`, in order; `depois` runs after each one.
    template<class S>
    void Folhas(TCamposNFe<S> campos, const S &s, QLatin1String pai = {}, const QStringList &omitirZero = {},
                const std::function<void(QLatin1String)> &depois = {})
    {
        for (const TCampoNFe<S> &c : campos) {
            if (c.pai != pai || c.soLeitura)
                continue;
            Folha(c, s, omitirZero.contains(c.nome));
            if (depois)
                depois(c.nome);
        }
    }

    void Grupo(const QString &nome, const std::function<void()> &conteudo)
    {
        Abrir(nome);
        conteudo();
        Fechar();
    }

    // Not a valid signature: the reader only notes that there is one and skips it whole.
    void Assinatura(const QString &chave, const QString &digest)
    {
        const QString ns = std::exchange(m_ns, NsDsig);
        w.writeDefaultNamespace(NsDsig);
        Grupo(QStringLiteral("Signature"), [&] {
            Grupo(QStringLiteral("SignedInfo"), [&] {
                w.writeEmptyElement(m_ns, QStringLiteral("CanonicalizationMethod"));
                Atributo(QStringLiteral("Algorithm"), QStringLiteral("http://www.w3.org/TR/2001/REC-xml-c14n-20010315"));
                Abrir(QStringLiteral("Reference"));
                Atributo(QStringLiteral("URI"), QStringLiteral("#NFe") + chave);
                Texto(QStringLiteral("DigestValue"), digest);
                Fechar();
            });
            Texto(QStringLiteral("SignatureValue"), QStringLiteral("R2VyYWRvTkZlIG7Do28gYXNzaW5hIGRlIHZlcmRhZGU="));
            Grupo(QStringLiteral("KeyInfo"), [&] {
                Grupo(QStringLiteral("X509Data"), [&] { Texto(QStringLiteral("X509Certificate"), QStringLiteral("TUlJRmFrZQ==")); });
            });
        });
        m_ns = ns;
    }

private:
    QXmlStreamWriter w;
    QString m_ns;
};

// A taxed group carries either the base and the rate or the quantity and its unit value; an
// untaxed one only the CST.
bool NoGrupo(QLatin1String nome, bool tributado, bool porQtde)
{
    static const QStringList qtdes{"qBCProd", "vAliqProd", "qUnid", "vUnid"};
    const bool aliq = nome == QLatin1String("vBC") || nome.startsWith(QLatin1Char('p'));
    return nome == QLatin1String("CST") || (tributado && (porQtde ? !aliq : !qtdes.contains(nome)));
}

void EscreverContrib(TEscritor &e, const QString &tributo, TCamposNFe<TNFeContrib> campos, const TNFeContrib &c)
{
    if (c.CST.isEmpty())
        return;
    const int cst = c.CST.toInt();
    const QString grupo = tributo + QLatin1String(cst == 1 || cst == 2 ? "Aliq" : cst == 3 ? "Qtde" : cst >= 4 && cst <= 9 ? "NT" : "Outr");
    e.Grupo(tributo, [&] {
        e.Grupo(grupo, [&] {
            const bool porQtde = grupo.endsWith(QLatin1String("Qtde")) || (grupo.endsWith(QLatin1String("Outr")) && c.qBCProd != 0);
            for (const TCampoNFe<TNFeContrib> &f : campos)
                if (NoGrupo(f.nome, !grupo.endsWith(QLatin1String("NT")), porQtde))
                    e.Folha(f, c, false);
        });
    });
}

void EscreverImposto(TEscritor &e, const TItem &it)
{
    using namespace CamposNFe;
    if (it.vTotTrib != Money())
        e.Folha(*AcharCampo(Prod(), QStringView(u"vTotTrib"), QStringView(u"imposto")), it, false);
    e.Grupo(QStringLiteral("ICMS"), [&] {
        const QString grupo = it.ICMS.grupo.isEmpty() ? QStringLiteral("ICMS00") : it.ICMS.grupo;
        e.Grupo(grupo, [&] {
            for (QString nome : CamposDoGrupoICMS(grupo)) {
                const bool opcional = nome.endsWith(QLatin1Char('?'));
                nome.remove(QLatin1Char('?'));
                if (const auto *c = AcharCampo(ICMS(), nome, {}))
                    e.Folha(*c, it.ICMS, opcional);
            }
        });
    });
    if (it.IPI.presente) {
        e.Grupo(QStringLiteral("IPI"), [&] {
            e.Folha(IPI()[0], it.IPI, false);
            e.Texto(QStringLiteral("cEnq"), it.IPI.cEnq.isEmpty() ? QStringLiteral("999") : it.IPI.cEnq);
            const int cst = it.IPI.CST.toInt();
            const bool trib = cst == 0 || cst == 49 || cst == 50 || cst == 99;
            e.Grupo(trib ? QStringLiteral("IPITrib") : QStringLiteral("IPINT"), [&] {
                for (const auto &c : IPI().subspan(2))
                    if (NoGrupo(c.nome, trib, it.IPI.qUnid != 0))
                        e.Folha(c, it.IPI, false);
            });
        });
    }
    EscreverContrib(e, QStringLiteral("PIS"), PIS(), it.PIS);
    EscreverContrib(e, QStringLiteral("COFINS"), COFINS(), it.COFINS);
    if (it.ICMSUFDest.presente)
        e.Grupo(QStringLiteral("ICMSUFDest"), [&] { e.Folhas(ICMSUFDest(), it.ICMSUFDest); });
    if (it.IBSCBS.presente) {
        const auto sub = [&](QLatin1String nome) { e.Grupo(nome, [&] { e.Folhas(IBSCBS(), it.IBSCBS, nome); }); };
        e.Grupo(QStringLiteral("IBSCBS"), [&] {
            e.Folhas(IBSCBS(), it.IBSCBS, QLatin1String("IBSCBS"));
            e.Grupo(QStringLiteral("gIBSCBS"), [&] {
                // The state's and the city's groups follow the base, the federal one the total.
                e.Folhas(IBSCBS(), it.IBSCBS, QLatin1String("gIBSCBS"), {}, [&](QLatin1String nome) {
                    for (const char *g : nome == QLatin1String("vBC") ? std::vector{"gIBSUF", "gIBSMun"} : std::vector{"gCBS"})
                        sub(QLatin1String(g));
                });
            });
        });
    }
}

void EscreverItem(TEscritor &e, const TItem &original)
{
    TItem it = original;
    for (QString *gtin : {&it.cEAN, &it.cEANTrib})
        if (gtin->isEmpty())
            *gtin = QStringLiteral("SEM GTIN");
    e.Abrir(QStringLiteral("det"));
    e.Atributo(QStringLiteral("nItem"), QString::number(it.nItem));
    e.Grupo(QStringLiteral("prod"), [&] { e.Folhas(CamposNFe::Prod(), it, {}, {"vFrete", "vSeg", "vDesc", "vOutro"}); });
    e.Grupo(QStringLiteral("imposto"), [&] { EscreverImposto(e, it); });
    if (it.pDevol != 0 || it.vIPIDevol != Money()) {
        e.Grupo(QStringLiteral("impostoDevol"), [&] {
            e.Folhas(CamposNFe::Prod(), it, QLatin1String("impostoDevol"));
            e.Grupo(QStringLiteral("IPI"), [&] { e.Folhas(CamposNFe::Prod(), it, QLatin1String("IPI")); });
        });
    }
    e.Folhas(CamposNFe::Prod(), it, QLatin1String("det"));
    e.Fechar();
}

void EscreverIBSCBSTot(TEscritor &e, const TNFeIBSCBSTot &t)
{
    // The amounts the model does not keep are written as zero.
    const auto zeros = [&](std::initializer_list<const char *> nomes) {
        for (const char *nome : nomes)
            e.Texto(QLatin1String(nome), QStringLiteral("0.00"));
    };
    const auto folhas = [&](const char *pai) { e.Folhas(CamposNFe::IBSCBSTot(), t, QLatin1String(pai)); };
    e.Grupo(QStringLiteral("IBSCBSTot"), [&] {
        folhas("IBSCBSTot");
        e.Grupo(QStringLiteral("gIBS"), [&] {
            for (const char *esfera : {"gIBSUF", "gIBSMun"})
                e.Grupo(QLatin1String(esfera), [&] { zeros({"vDif", "vDevTrib"}); folhas(esfera); });
            folhas("gIBS");
            zeros({"vCredPresCondSus"});
        });
        e.Grupo(QStringLiteral("gCBS"), [&] {
            zeros({"vDif", "vDevTrib"});
            folhas("gCBS");
            zeros({"vCredPres", "vCredPresCondSus"});
        });
    });
}

void EscreverTransp(TEscritor &e, const TNFeTransp &t)
{
    const auto sub = [&](QLatin1String nome) { e.Grupo(nome, [&] { e.Folhas(CamposNFe::Transp(), t, nome); }); };
    e.Grupo(QStringLiteral("transp"), [&] {
        e.Folhas(CamposNFe::Transp(), t, QLatin1String("transp"));
        if (!t.CNPJ.isEmpty() || !t.CPF.isEmpty() || !t.xNome.isEmpty())
            sub(QLatin1String("transporta"));
        if (!t.placa.isEmpty())
            sub(QLatin1String("veicTransp"));
        if (t.qVol != 0 || !t.esp.isEmpty() || t.pesoL != 0 || t.pesoB != 0)
            sub(QLatin1String("vol"));
    });
}

void EscreverInfNFe(TEscritor &e, const TnfeProc &nfe)
{
    using namespace CamposNFe;
    e.Abrir(QStringLiteral("infNFe"));
    e.Atributo(QStringLiteral("Id"), QStringLiteral("NFe") + nfe.chave);
    e.Atributo(QStringLiteral("versao"), nfe.versao.isEmpty() ? QStringLiteral("4.00") : nfe.versao);
    e.Grupo(QStringLiteral("ide"), [&] {
        e.Folhas(Ide(), nfe.ide, {}, {}, [&](QLatin1String nome) {
            if (nome == QLatin1String("verProc")) {
                for (const QString &ref : nfe.ide.refNFe)
                    e.Grupo(QStringLiteral("NFref"), [&] { e.Texto(QStringLiteral("refNFe"), ref); });
            }
        });
    });
    // The address goes right after the leaf `antes`.
    const auto pessoa = [&](const QString &grupo, auto campos, const auto &p, const char *antes, const QString &endereco) {
        e.Grupo(grupo, [&] {
            e.Folhas(campos, p, {}, {}, [&](QLatin1String nome) {
                if (nome == QLatin1String(antes))
                    e.Grupo(endereco, [&] { e.Folhas(Endereco(), p.ender); });
            });
        });
    };
    pessoa(QStringLiteral("emit"), Emit(), nfe.emitente, "xFant", QStringLiteral("enderEmit"));
    const TPess_Dest &d = nfe.destinatario;
    if (!d.CNPJ.isEmpty() || !d.CPF.isEmpty() || !d.idEstrangeiro.isEmpty())
        pessoa(QStringLiteral("dest"), Dest(), d, "xNome", QStringLiteral("enderDest"));
    for (int i = 0; i < nfe.itens.Count(); ++i)
        EscreverItem(e, nfe.itens.GetItem(i));
    e.Grupo(QStringLiteral("total"), [&] {
        e.Grupo(QStringLiteral("ICMSTot"), [&] { e.Folhas(ICMSTot(), nfe.ICMSTot); });
        if (nfe.IBSCBSTot.presente)
            EscreverIBSCBSTot(e, nfe.IBSCBSTot);
    });
    EscreverTransp(e, nfe.transp);
    // Not read: a group the reader must skip inside infNFe.
    e.Grupo(QStringLiteral("pag"), [&] {
        e.Grupo(QStringLiteral("detPag"), [&] {
            e.Texto(QStringLiteral("tPag"), nfe.ICMSTot.vNF == Money() ? QStringLiteral("90") : QStringLiteral("15"));
            e.Texto(QStringLiteral("vPag"), Decimal(nfe.ICMSTot.vNF, 2));
        });
    });
    if (!nfe.infAdFisco.isEmpty() || !nfe.infCpl.isEmpty())
        e.Grupo(QStringLiteral("infAdic"), [&] { e.Folhas(CamposNFe::InfAdic(), nfe); });
    e.Fechar();
}

} // namespace

QByteArray GerarXmlNFe(const TnfeProc &nfe, const OpcoesGeracao &opcoes)
{
    QByteArray xml;
    {
        TEscritor e(&xml, opcoes);
        const auto versao = [&] { e.Atributo(QStringLiteral("versao"), QStringLiteral("4.00")); };
        const auto documento = [&] {
            e.Grupo(QStringLiteral("NFe"), [&] {
                EscreverInfNFe(e, nfe);
                if (opcoes.assinatura)
                    e.Assinatura(nfe.chave, nfe.prot.digVal.isEmpty() ? QStringLiteral("bm90IGEgcmVhbCBkaWdlc3Q=") : nfe.prot.digVal);
            });
        };
        if (!opcoes.comProtocolo) {
            documento();
        } else {
            e.Grupo(QStringLiteral("nfeProc"), [&] {
                versao();
                documento();
                e.Grupo(QStringLiteral("protNFe"), [&] {
                    versao();
                    e.Grupo(QStringLiteral("infProt"), [&] { e.Folhas(CamposNFe::Prot(), nfe.prot); });
                });
            });
        }
    }
    return opcoes.bom ? "\xEF\xBB\xBF" + xml : xml;
}

bool GravarXmlNFe(const QString &caminho, const TnfeProc &nfe, const OpcoesGeracao &opcoes)
{
    QSaveFile f(caminho);
    return f.open(QIODevice::WriteOnly) && f.write(GerarXmlNFe(nfe, opcoes)) >= 0 && f.commit();
}

TnfeProc NFeExemplo(const QString &cnpjEmit, const QString &cnpjDest, qint64 numero, int nItens)
{
    TnfeProc nfe;
    nfe.versao = QStringLiteral("4.00");
    TNFeIde &ide = nfe.ide;
    ide = {.cUF = "35", .cNF = QString::number((numero * 7919 + 13) % 100000000).rightJustified(8, QLatin1Char('0')),
           .natOp = "VENDA DE MERCADORIA", .cMunFG = "3550308", .verProc = "GeradorNFe 1.0", .serie = 1, .tpNF = 1,
           .idDest = 1, .tpImp = 1, .tpEmis = 1, .tpAmb = 1, .finNFe = 1, .indPres = 9, .nNF = numero,
           .dhEmi = QDateTime(QDate(2026, 11, 20), QTime(10, 30), QTimeZone(-3 * 3600))};
    const QString chave43 = ide.cUF + ide.dhEmi.toString(QStringLiteral("yyMM")) + cnpjEmit.rightJustified(14, QLatin1Char('0'))
        + QStringLiteral("55") + QString::number(ide.serie).rightJustified(3, QLatin1Char('0'))
        + QString::number(numero).rightJustified(9, QLatin1Char('0')) + QString::number(ide.tpEmis) + ide.cNF;
    nfe.chave = chave43 + ChaveNFe::Digito(chave43);
    ide.cDV = nfe.chave.back().digitValue();

    const TNFeEndereco endereco{"RUA DAS FLORES", "120", {}, "CENTRO", "3550308", "SAO PAULO", "SP", "01001000", "1058",
                                "BRASIL", "1133334444"};
    nfe.emitente = {cnpjEmit, {}, "DISTRIBUIDORA EXEMPLO LTDA", "EXEMPLO", "110042490114", {}, {}, {}, 3, endereco};
    nfe.destinatario = {cnpjDest, {}, {}, "LOJA DESTINO LTDA", "111222333444", {}, {}, {}, 1, endereco};

    TNFeICMSTot &tot = nfe.ICMSTot;
    for (int i = 1; i <= nItens; ++i) {
        const Money unitario = Money::fromRaw(100000 + i * 2500);
        const int qtd = 1 + i % 5;
        TItem &it = nfe.itens.Add();
        it = {.nItem = i, .cProd = QStringLiteral("F%1").arg(i, 3, 10, QLatin1Char('0')),
              .xProd = QStringLiteral("PRODUTO EXEMPLO %1").arg(i), .NCM = "22021000", .CFOP = "5102", .uCom = "UN",
              .uTrib = "UN", .qCom = double(qtd), .vUnCom = unitario.toDouble(), .qTrib = double(qtd),
              .vUnTrib = unitario.toDouble(), .vProd = unitario * qtd};
        it.ICMS = {.grupo = "ICMS00", .CST = "00", .modBC = 3, .vBC = it.vProd, .vICMS = it.vProd.times(0.18).roundTo(2),
                   .pICMS = 18};
        it.PIS = {"01", it.vProd, it.vProd.times(0.0165).roundTo(2), 1.65};
        it.COFINS = {"01", it.vProd, it.vProd.times(0.076).roundTo(2), 7.6};
        tot.vICMS += it.ICMS.vICMS;
        tot.vProd += it.vProd;
        tot.vPIS += it.PIS.valor;
        tot.vCOFINS += it.COFINS.valor;
    }
    tot.vBC = tot.vNF = tot.vProd;   // every item's ICMS base is its value
    nfe.infCpl = QStringLiteral("Pedido 4521 & entrega <manhã>");
    nfe.assinado = true;
    nfe.prot = {true, 1, 100, "SP_NFE_PL009_V4", nfe.chave, QStringLiteral("1352600%1").arg(numero, 8, 10, QLatin1Char('0')),
                "bm90IGEgcmVhbCBkaWdlc3Q=", "Autorizado o uso da NF-e", ide.dhEmi.addSecs(95)};
    return nfe;
}
