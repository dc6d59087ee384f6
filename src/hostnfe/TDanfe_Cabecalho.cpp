#include "TDanfe_Partes.h"

#include "TCodigoBarras.h"

namespace TDanfePartes {

using namespace TDanfePincel;

namespace {

constexpr double LarguraEmitente = 82, LarguraDanfe = 34, LarguraChave = Largura - LarguraEmitente - LarguraDanfe;
constexpr double AlturaBarras = 12, AlturaChave = 8;

void Emitente(TPincel &p, const TnfeProc &nfe, const QRectF &r)
{
    p.Retangulo(r);
    const QRectF dentro = r.adjusted(1.5, 0.6, -1.5, -1);
    const QFont ft = FonteTitulo();
    p.Texto(QRectF(dentro.left(), dentro.top(), dentro.width(), AlturaLinha(ft)), QStringLiteral("IDENTIFICAÇÃO DO EMITENTE"), ft);
    const TPess_Emit &e = nfe.emitente;
    const TNFeEndereco &end = e.ender;
    // A long name gets smaller letters before it gets cut.
    QFont fn = Fonte(9, true);
    QStringList nome = Quebrar(fn, e.xNome, dentro.width());
    if (nome.size() > 2) {
        fn = Fonte(7.5, true);
        nome = Quebrar(fn, e.xNome, dentro.width(), 3);
    }
    QString logradouro = end.xLgr + (end.nro.isEmpty() ? QString() : QStringLiteral(", ") + end.nro);
    if (!end.xCpl.isEmpty())
        logradouro += QStringLiteral(" - ") + end.xCpl;
    QStringList linhas = Quebrar(Fonte(7), logradouro, dentro.width(), 2);
    linhas << end.xBairro + QStringLiteral(" - CEP ") + Cep(end.CEP) << end.xMun + QStringLiteral(" - ") + end.UF;
    if (!end.fone.isEmpty())
        linhas << QStringLiteral("Fone: ") + Fone(end.fone);
    const double hNome = double(nome.size()) * AlturaLinha(fn);
    const double hLinhas = double(linhas.size()) * AlturaLinha(Fonte(7));
    const double topo = dentro.top() + AlturaLinha(ft) + std::max(0.0, (dentro.height() - AlturaLinha(ft) - hNome - hLinhas - 1) / 2);
    p.Linhas(QRectF(dentro.left(), topo, dentro.width(), hNome + 0.01), nome, fn, Qt::AlignHCenter);
    p.Linhas(QRectF(dentro.left(), topo + hNome + 1, dentro.width(), hLinhas + 0.01), linhas, Fonte(7), Qt::AlignHCenter);
}

void Titulo(TPincel &p, const TnfeProc &nfe, const QRectF &r, int folha, int folhas)
{
    p.Retangulo(r);
    const QRectF d = r.adjusted(1, 1, -1, -1);
    double y = d.top();
    auto linha = [&](const QString &texto, const QFont &f, Qt::Alignment a = Qt::AlignHCenter) {
        p.Texto(QRectF(d.left(), y, d.width(), AlturaLinha(f)), texto, f, a);
        y += AlturaLinha(f);
    };
    linha(QStringLiteral("DANFE"), Fonte(12, true));
    const QFont fd = Fonte(6);
    const QStringList doc = Quebrar(fd, QStringLiteral("Documento Auxiliar da Nota Fiscal Eletrônica"), d.width(), 3);
    p.Linhas(QRectF(d.left(), y, d.width(), double(doc.size()) * AlturaLinha(fd) + 0.01), doc, fd, Qt::AlignHCenter);
    y += double(doc.size()) * AlturaLinha(fd) + 0.8;

    const QFont fe = Fonte(6.5);
    const double yTipo = y;
    linha(QStringLiteral("0 - ENTRADA"), fe, Qt::AlignLeft);
    linha(QStringLiteral("1 - SAÍDA"), fe, Qt::AlignLeft);
    const QRectF caixa(d.right() - 5, yTipo + 0.3, 5, y - yTipo - 0.6);
    p.Retangulo(caixa);
    p.Texto(caixa, QString::number(nfe.ide.tpNF), Fonte(10, true), Qt::AlignCenter);
    y += 0.8;
    const QFont fn = Fonte(8, true);
    linha(QStringLiteral("Nº ") + NumeroNF(nfe.ide.nNF), fn);
    linha(QStringLiteral("SÉRIE ") + Serie(nfe.ide.serie), fn);
    linha(QStringLiteral("FOLHA %1/%2").arg(folha).arg(folhas), Fonte(7.5));
}

void Chave(TPincel &p, const TnfeProc &nfe, const QRectF &r)
{
    const QRectF barras(r.left(), r.top(), r.width(), AlturaBarras);
    p.Retangulo(barras);
    p.Barras(barras.adjusted(2, 1.2, -2, -1.2), TCodigoBarras::Code128Modulos(nfe.chave));
    p.Campo(QRectF(r.left(), barras.bottom(), r.width(), AlturaChave), QStringLiteral("CHAVE DE ACESSO"),
            ChaveEmGrupos(nfe.chave), Qt::AlignHCenter, true);
    const QRectF consulta(r.left(), barras.bottom() + AlturaChave, r.width(), r.bottom() - barras.bottom() - AlturaChave);
    p.Retangulo(consulta);
    const QFont f = Fonte(7);
    const QStringList linhas = Quebrar(f,
        QStringLiteral("Consulta de autenticidade no portal nacional da NF-e www.nfe.fazenda.gov.br/portal "
                       "ou no site da Sefaz Autorizadora"), consulta.width() - 3, 3);
    const double h = double(linhas.size()) * AlturaLinha(f);
    p.Linhas(QRectF(consulta.left() + 1.5, consulta.top() + (consulta.height() - h) / 2, consulta.width() - 3, h + 0.01),
             linhas, f, Qt::AlignHCenter);
}

} // namespace

void Canhoto(TPincel &p, const TnfeProc &nfe)
{
    constexpr double LarguraNumero = 38, Meio = AlturaCanhoto / 2;
    const double topo = Margem, largura = Largura - LarguraNumero;
    p.Retangulo(QRectF(Esquerda, topo, largura, Meio));
    const QFont f = Fonte(5.5);
    const QString texto = QStringLiteral("RECEBEMOS DE %1 OS PRODUTOS CONSTANTES DA NOTA FISCAL INDICADA AO LADO\n"
                                         "EMISSÃO: %2 - VALOR TOTAL: R$ %3 - DESTINATÁRIO: %4")
                              .arg(nfe.emitente.xNome, Data(nfe.ide.dhEmi), Dinheiro(nfe.ICMSTot.vNF), nfe.destinatario.xNome);
    p.Linhas(QRectF(Esquerda + 1, topo + 0.6, largura - 2, Meio - 0.8), Quebrar(f, texto, largura - 2), f);
    p.Campo(QRectF(Esquerda, topo + Meio, 40, Meio), QStringLiteral("DATA DE RECEBIMENTO"), QString());
    p.Campo(QRectF(Esquerda + 40, topo + Meio, largura - 40, Meio), QStringLiteral("IDENTIFICAÇÃO E ASSINATURA DO RECEBEDOR"),
            QString());
    const QRectF numero(Esquerda + largura, topo, LarguraNumero, AlturaCanhoto);
    p.Retangulo(numero);
    const QFont fn = Fonte(9, true);
    const double h = AlturaLinha(Fonte(10, true)) + 2 * AlturaLinha(fn);
    p.Linhas(numero.adjusted(1, (AlturaCanhoto - h) / 2, -1, 0),
             {QStringLiteral("NF-e")}, Fonte(10, true), Qt::AlignHCenter);
    p.Linhas(numero.adjusted(1, (AlturaCanhoto - h) / 2 + AlturaLinha(Fonte(10, true)), -1, 0),
             {QStringLiteral("Nº ") + NumeroNF(nfe.ide.nNF), QStringLiteral("SÉRIE ") + Serie(nfe.ide.serie)}, fn,
             Qt::AlignHCenter);
    const double corte = topo + AlturaCanhoto + EspacoCorte / 2;
    p.Linha(Esquerda, corte, Direita, corte, 0.15, true);
}

void Cabecalho(TPincel &p, const TnfeProc &nfe, bool primeira, int folha, int folhas)
{
    const double topo = TopoCabecalho(primeira);
    Emitente(p, nfe, QRectF(Esquerda, topo, LarguraEmitente, AlturaIdentificacao));
    Titulo(p, nfe, QRectF(Esquerda + LarguraEmitente, topo, LarguraDanfe, AlturaIdentificacao), folha, folhas);
    const double xChave = Esquerda + LarguraEmitente + LarguraDanfe;
    Chave(p, nfe, QRectF(xChave, topo, LarguraChave, AlturaIdentificacao));

    double y = topo + AlturaIdentificacao;
    p.Campo(QRectF(Esquerda, y, xChave - Esquerda, AlturaCampo), QStringLiteral("NATUREZA DA OPERAÇÃO"), nfe.ide.natOp);
    const QString protocolo = nfe.prot.presente
        ? nfe.prot.nProt + QStringLiteral(" - ") + Data(nfe.prot.dhRecbto) + QLatin1Char(' ') + Hora(nfe.prot.dhRecbto)
        : QStringLiteral("DANFE sem protocolo de autorização");
    p.Campo(QRectF(xChave, y, LarguraChave, AlturaCampo), QStringLiteral("PROTOCOLO DE AUTORIZAÇÃO DE USO"), protocolo,
            Qt::AlignHCenter);
    y += AlturaCampo;
    const double terco = Largura / 3;
    p.Campo(QRectF(Esquerda, y, terco, AlturaCampo), QStringLiteral("INSCRIÇÃO ESTADUAL"), nfe.emitente.IE);
    p.Campo(QRectF(Esquerda + terco, y, terco, AlturaCampo), QStringLiteral("INSCRIÇÃO ESTADUAL DO SUBST. TRIBUT."),
            nfe.emitente.IEST);
    p.Campo(QRectF(Esquerda + 2 * terco, y, terco, AlturaCampo), QStringLiteral("CNPJ / CPF"),
            Documento(nfe.emitente.CNPJ, nfe.emitente.CPF));
}

} // namespace TDanfePartes
