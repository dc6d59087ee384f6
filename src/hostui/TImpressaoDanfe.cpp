#include "TImpressaoDanfe.h"

#include "ImprimirOuPdf.h"
#include "TDanfe.h"
#include "TnfeProc.h"

bool ImprimirDanfe(QWidget *pai, const TnfeProc &nfe, QString *erro)
{
    TTrabalhoImpressao trabalho;
    trabalho.nome = QStringLiteral("DANFE ") + nfe.chave;
    trabalho.tituloImpressao = QStringLiteral("Imprimir DANFE");
    trabalho.tituloPdf = QStringLiteral("Salvar DANFE em PDF");
    trabalho.arquivoPdf = QStringLiteral("DANFE-%1.pdf").arg(nfe.chave);
    trabalho.desenhar = [&nfe](QPagedPaintDevice &dispositivo, QString *motivo) {
        return TDanfe::Desenhar(nfe, dispositivo, motivo);
    };
    trabalho.gravarPdf = [&nfe](const QString &arquivo, QString *motivo) { return TDanfe::GerarPdf(nfe, arquivo, motivo); };
    return ImprimirOuPdf(pai, trabalho, erro);
}
