#include "TDanfe.h"

#include "TDanfe_Partes.h"

#include <QFileInfo>
#include <QPageLayout>
#include <QPagedPaintDevice>
#include <QPainter>
#include <QPdfWriter>
#include <QSaveFile>

using namespace TDanfePartes;
using namespace TDanfePincel;

int TDanfe::Paginas(const TnfeProc &nfe) { return int(Planejar(nfe).paginas.size()); }

bool TDanfe::Desenhar(const TnfeProc &nfe, QPagedPaintDevice &dispositivo, QString *erro)
{
    const TPlano plano = Planejar(nfe);
    QPainter painter;
    if (!ComecarEmMilimetros(painter, dispositivo, QPageLayout(QPageSize(QPageSize::A4), QPageLayout::Portrait, QMarginsF()))) {
        if (erro)
            *erro = QStringLiteral("Não foi possível iniciar o desenho do DANFE no dispositivo de impressão");
        return false;
    }

    TPincel pincel(painter);
    const int folhas = int(plano.paginas.size());
    for (int k = 0; k < folhas; ++k) {
        const bool primeira = k == 0;
        if (!primeira && !dispositivo.newPage()) {
            painter.end();
            if (erro)
                *erro = QStringLiteral("Não foi possível abrir a folha %1 do DANFE no dispositivo de impressão").arg(k + 1);
            return false;
        }
        const TPagina &pagina = plano.paginas[std::size_t(k)];
        if (primeira)
            Canhoto(pincel, nfe);
        Cabecalho(pincel, nfe, primeira, k + 1, folhas);
        if (primeira) {
            double y = TopoCabecalho(true) + AlturaCabecalho;
            Destinatario(pincel, nfe, y);
            Imposto(pincel, nfe, y += AlturaDestinatario);
            Transporte(pincel, nfe, y += AlturaImposto);
            Adicionais(pincel, plano);
        }
        Itens(pincel, nfe, plano, pagina, primeira);
        AdicionaisContinuacao(pincel, plano, pagina);
        if (nfe.ide.tpAmb == 2) {
            const double topo = TopoItens(primeira);
            pincel.MarcaDagua(QRectF(Esquerda, topo, Largura, FimItens(primeira) - topo), QStringLiteral("SEM VALOR FISCAL"));
        }
    }
    if (!painter.end()) {
        if (erro)
            *erro = QStringLiteral("Não foi possível concluir o desenho do DANFE no dispositivo de impressão");
        return false;
    }
    return true;
}

bool TDanfe::GerarPdf(const TnfeProc &nfe, const QString &arquivoPdf, QString *erro)
{
    // Written whole or not at all: a failure leaves an earlier file of that name untouched.
    QSaveFile arquivo(arquivoPdf);
    auto falha = [&](const QString &motivo) {
        if (erro)
            *erro = QStringLiteral("Não foi possível gravar o DANFE no arquivo %1: %2")
                        .arg(QFileInfo(arquivoPdf).absoluteFilePath(), motivo);
        return false;
    };
    if (!arquivo.open(QIODevice::WriteOnly))
        return falha(arquivo.errorString());
    {
        QPdfWriter pdf(&arquivo);
        pdf.setResolution(300);
        pdf.setTitle(QStringLiteral("DANFE ") + nfe.chave);
        pdf.setCreator(QStringLiteral("Pavrel"));
        QString motivo;
        if (!Desenhar(nfe, pdf, &motivo)) {
            arquivo.cancelWriting();
            return falha(motivo);
        }
    }
    if (!arquivo.commit())
        return falha(arquivo.errorString());
    return true;
}
