#include "TDanfe.h"

int TDanfe::Paginas(const TnfeProc &) { return 0; }

bool TDanfe::Desenhar(const TnfeProc &, QPagedPaintDevice &, QString *erro)
{
    if (erro)
        *erro = QStringLiteral("DANFE ainda não disponível");
    return false;
}

bool TDanfe::GerarPdf(const TnfeProc &, const QString &, QString *erro)
{
    if (erro)
        *erro = QStringLiteral("DANFE ainda não disponível");
    return false;
}
