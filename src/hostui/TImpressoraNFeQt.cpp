#include "TImpressoraNFeQt.h"

#include "ImprimirOuPdf.h"
#include "TImpressoraNFe.h"

#include <QApplication>

namespace {

class TImpressoraNFeQt final : public TImpressoraNFe
{
public:
    bool Imprimir(const QString &nome, const TDesenho &desenhar, QString *erro) override
    {
        TTrabalhoImpressao trabalho;
        trabalho.nome = nome;
        trabalho.tituloImpressao = QStringLiteral("Imprimir ") + nome.section(u' ', 0, 0);
        trabalho.tituloPdf = QStringLiteral("Salvar %1 em PDF").arg(nome.section(u' ', 0, 0));
        trabalho.arquivoPdf = QString(nome).replace(u' ', u'-') + QStringLiteral(".pdf");
        trabalho.desenhar = desenhar;
        return ImprimirOuPdf(QApplication::activeWindow(), trabalho, erro);
    }
};

} // namespace

void RegistrarImpressoraNFeQt()
{
    static TImpressoraNFeQt impressora;
    TImpressoraNFe::Definir(&impressora);
}
