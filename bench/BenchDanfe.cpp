// The DANFE of a 990-item NF-e written to a PDF: milliseconds per page, and how much of it is
// the planning of the pages (measuring every item's text) rather than the drawing.
#include "GeradorNFe.h"
#include "TDanfe.h"

#include <QElapsedTimer>
#include <QFileInfo>
#include <QGuiApplication>
#include <QTemporaryDir>
#include <QTextStream>

#include <algorithm>
#include <vector>

namespace {

TnfeProc Nota990()
{
    TnfeProc nfe = NFeExemplo(QStringLiteral("12345678000195"), QStringLiteral("98765432000198"), 990, 990);
    for (int i = 0; i < nfe.itens.Count(); ++i) {
        TItem &it = nfe.itens.GetItem(i);
        it.xProd = QStringLiteral("PRODUTO DE LIMPEZA CONCENTRADO EMBALAGEM ECONOMICA %1 LITROS").arg(1 + i % 5);
        if (i % 10 == 0)
            it.infAdProd = QStringLiteral("Lote %1 validade 12/2027").arg(i);
        it.IPI = {true, QStringLiteral("999"), {}, QStringLiteral("50"), it.vProd, it.vProd.times(0.065).roundTo(2), 6.5, 0, 0};
    }
    return nfe;
}

template<typename F>
double MelhorMs(int rodadas, F &&f)
{
    std::vector<double> tempos;
    for (int i = 0; i < rodadas; ++i) {
        QElapsedTimer t;
        t.start();
        f();
        tempos.push_back(double(t.nsecsElapsed()) / 1e6);
    }
    return *std::min_element(tempos.begin(), tempos.end());
}

} // namespace

int main(int argc, char **argv)
{
    // Drawing needs fonts, not a display.
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QGuiApplication app(argc, argv);
    QTextStream out(stdout);
    const TnfeProc nfe = Nota990();
    QTemporaryDir pasta;
    const QString pdf = pasta.filePath(QStringLiteral("danfe990.pdf"));

    bool ok = true;
    QString erro;
    int folhas = 0;
    const double planejar = MelhorMs(5, [&] { folhas = TDanfe::Paginas(nfe); });
    const double gerar = MelhorMs(5, [&] { ok = ok && TDanfe::GerarPdf(nfe, pdf, &erro); });
    if (!ok) {
        out << "DANFE failed: " << erro << Qt::endl;
        return 1;
    }
    out << "DANFE of 990 items: " << folhas << " pages, PDF of " << QFileInfo(pdf).size() / 1024 << " KiB\n"
        << "  whole PDF (best of 5):    " << QString::number(gerar, 'f', 1) << " ms, "
        << QString::number(gerar / folhas, 'f', 2) << " ms per page\n"
        << "  planning the pages only:  " << QString::number(planejar, 'f', 1) << " ms ("
        << QString::number(100 * planejar / gerar, 'f', 0) << "% of the whole; done once more inside it)" << Qt::endl;
    return 0;
}
