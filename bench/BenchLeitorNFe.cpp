// Reading a supplier's NF-e of 990 items into the document, next to libxml2 building its tree of
// the same file in the same run: the reader is held to at most twice libxml2's time.
#include "GeradorNFe.h"
#include "TNFe_XMLI.h"

#include <benchmark/benchmark.h>
#include <libxml/parser.h>

#include <QFile>
#include <QTemporaryDir>
#include <QTextStream>
#include <QXmlStreamReader>

#include <map>

namespace {

QString g_arquivo, g_arquivoGrande;
QByteArray g_xml;

// Every item carries what a real purchase of a regular-regime supplier does: ICMS, IPI, PIS,
// COFINS, the destination share and the 2026 IBS/CBS group.
TnfeProc Nota(int itens)
{
    TnfeProc nfe = NFeExemplo(QStringLiteral("12345678000195"), QStringLiteral("98765432000198"), 90210, itens);
    for (int i = 0; i < itens; ++i) {
        TItem &it = nfe.itens.GetItem(i);
        it.cEAN = it.cEANTrib = QStringLiteral("789%1").arg(1000000000 + i);
        it.CEST = QStringLiteral("0300700");
        it.IPI = {true, QStringLiteral("999"), {}, QStringLiteral("50"), it.vProd, it.vProd.times(0.065).roundTo(2), 6.5, 0, 0};
        it.ICMSUFDest = {true, it.vProd, it.vProd, it.vProd.times(0.02).roundTo(2), it.vProd.times(0.06).roundTo(2), {}, 2, 18, 12, 100};
        it.IBSCBS = {true, QStringLiteral("000"), QStringLiteral("000001"), it.vProd, it.vProd.times(0.001).roundTo(2), {},
                     it.vProd.times(0.001).roundTo(2), it.vProd.times(0.009).roundTo(2), 0.1, 0, 0.9};
        it.infAdProd = QStringLiteral("Lote %1 validade 12/2027").arg(i);
    }
    return nfe;
}

void LerArquivo(benchmark::State &estado, const QString &arquivo)
{
    for (auto _ : estado) {
        TnfeProc nfe;
        TNFe_XMLI leitor(nfe);
        if (!leitor.ImportarDoArq(arquivo))
            estado.SkipWithError(leitor.Erro().toUtf8().constData());
        benchmark::DoNotOptimize(nfe.itens.Count());
    }
    estado.SetBytesProcessed(estado.iterations() * QFile(arquivo).size());
}

void TNFe_XMLI_Arquivo(benchmark::State &estado) { LerArquivo(estado, g_arquivo); }
void TNFe_XMLI_Arquivo10MB(benchmark::State &estado) { LerArquivo(estado, g_arquivoGrande); }

void TNFe_XMLI_Memoria(benchmark::State &estado)
{
    for (auto _ : estado) {
        TnfeProc nfe;
        TNFe_XMLI leitor(nfe);
        if (!leitor.ImportarDoTexto(g_xml, g_arquivo))
            estado.SkipWithError(leitor.Erro().toUtf8().constData());
        benchmark::DoNotOptimize(nfe.itens.Count());
    }
    estado.SetBytesProcessed(estado.iterations() * g_xml.size());
}

// The floor under the reader: the same text decoded and tokenized as the reader does, nothing kept.
void QXmlStreamReader_Tokens(benchmark::State &estado)
{
    for (auto _ : estado) {
        QXmlStreamReader r(QString::fromUtf8(g_xml));
        while (!r.atEnd())
            r.readNext();
        if (r.hasError())
            estado.SkipWithError("QXmlStreamReader failed");
    }
    estado.SetBytesProcessed(estado.iterations() * g_xml.size());
}

void libxml2_xmlReadFile(benchmark::State &estado)
{
    const QByteArray caminho = QFile::encodeName(g_arquivo);
    for (auto _ : estado) {
        xmlDocPtr doc = xmlReadFile(caminho.constData(), nullptr, XML_PARSE_NONET);
        if (!doc)
            estado.SkipWithError("xmlReadFile failed");
        xmlFreeDoc(doc);
    }
    estado.SetBytesProcessed(estado.iterations() * g_xml.size());
}

void libxml2_xmlReadMemory(benchmark::State &estado)
{
    for (auto _ : estado) {
        xmlDocPtr doc = xmlReadMemory(g_xml.constData(), int(g_xml.size()), "nfe.xml", nullptr, XML_PARSE_NONET);
        if (!doc)
            estado.SkipWithError("xmlReadMemory failed");
        xmlFreeDoc(doc);
    }
    estado.SetBytesProcessed(estado.iterations() * g_xml.size());
}

BENCHMARK(TNFe_XMLI_Arquivo)->Unit(benchmark::kMillisecond);
BENCHMARK(libxml2_xmlReadFile)->Unit(benchmark::kMillisecond);
BENCHMARK(TNFe_XMLI_Memoria)->Unit(benchmark::kMillisecond);
BENCHMARK(libxml2_xmlReadMemory)->Unit(benchmark::kMillisecond);
BENCHMARK(QXmlStreamReader_Tokens)->Unit(benchmark::kMillisecond);
BENCHMARK(TNFe_XMLI_Arquivo10MB)->Unit(benchmark::kMillisecond);

// Shows the medians of the repetitions and keeps each benchmark's best repetition: on a shared
// machine the repetitions are interleaved and the best of them is the steadiest figure.
class TRelatorio : public benchmark::ConsoleReporter
{
public:
    std::map<std::string, std::pair<double, double>> melhor;   // wall and processor ms

    void ReportRuns(const std::vector<Run> &runs) override
    {
        std::vector<Run> medianas;
        for (const Run &r : runs) {
            if (r.error_occurred)
                continue;
            if (r.run_type == Run::RT_Aggregate) {
                if (r.aggregate_name == "median")
                    medianas.push_back(r);
                continue;
            }
            auto [it, novo] = melhor.try_emplace(r.run_name.function_name, r.GetAdjustedRealTime(), r.GetAdjustedCPUTime());
            if (!novo)
                it->second = {std::min(it->second.first, r.GetAdjustedRealTime()), std::min(it->second.second, r.GetAdjustedCPUTime())};
        }
        if (!medianas.empty())
            ConsoleReporter::ReportRuns(medianas);
    }
};

} // namespace

int main(int argc, char **argv)
{
    QTemporaryDir pasta;
    g_arquivo = pasta.filePath(QStringLiteral("nfe-990.xml"));
    g_arquivoGrande = pasta.filePath(QStringLiteral("nfe-10mb.xml"));
    if (!GravarXmlNFe(g_arquivo, Nota(990)) || !GravarXmlNFe(g_arquivoGrande, Nota(6600))) {
        QTextStream(stderr) << "cannot write the documents under " << pasta.path() << Qt::endl;
        return 1;
    }
    QFile f(g_arquivo);
    if (!f.open(QIODevice::ReadOnly))
        return 1;
    g_xml = f.readAll();
    QTextStream(stdout) << QString::asprintf("document of 990 items: %.2f MB; the large one: %.2f MB\n", g_xml.size() / 1048576.0,
                                             QFile(g_arquivoGrande).size() / 1048576.0)
                        << Qt::flush;

    // Interleaved repetitions unless the command line says otherwise (its flags come later and win).
    std::vector<char *> args{argv[0], const_cast<char *>("--benchmark_repetitions=7"),
                             const_cast<char *>("--benchmark_enable_random_interleaving=true")};
    args.insert(args.end(), argv + 1, argv + argc);
    int nArgs = int(args.size());
    benchmark::Initialize(&nArgs, args.data());
    TRelatorio relatorio;
    benchmark::RunSpecifiedBenchmarks(&relatorio);
    benchmark::Shutdown();
    xmlCleanupParser();

    QTextStream out(stdout);
    const auto razao = [&](const char *leitor, const char *libxml) {
        const auto [a, ac] = relatorio.melhor[leitor];
        const auto [b, bc] = relatorio.melhor[libxml];
        if (b > 0 && bc > 0)
            out << QString::asprintf("%-23s / %-22s best wall %5.2f  cpu %5.2f  (at most 2.00)\n", leitor, libxml, a / b, ac / bc);
    };
    razao("TNFe_XMLI_Arquivo", "libxml2_xmlReadFile");
    razao("TNFe_XMLI_Memoria", "libxml2_xmlReadMemory");
    razao("QXmlStreamReader_Tokens", "libxml2_xmlReadMemory");
    return 0;
}
