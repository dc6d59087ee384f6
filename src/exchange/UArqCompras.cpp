#include "UArqCompras.h"

#include "TConexaoSQL.h"
#include "Valores.h"
#include "Windows1252.h"

#include <QDir>
#include <QFile>
#include <QRegularExpression>

#include <algorithm>

namespace {

const QString Tab = QStringLiteral("\t");
const QString DataVazia = QStringLiteral("30/12/1899");

// "12.5000" -> "12,5", "3.0000" -> "3": the shortest regional form.
QString decimalRegional(QString texto)
{
    if (texto.contains(QLatin1Char('.'))) {
        while (texto.endsWith(QLatin1Char('0')))
            texto.chop(1);
        if (texto.endsWith(QLatin1Char('.')))
            texto.chop(1);
    }
    texto.replace(QLatin1Char('.'), QLatin1Char(','));
    return texto == QLatin1String("-0") ? QStringLiteral("0") : texto;
}

// Well-formed UTF-8: each lead byte followed by as many continuation bytes as it announces.
bool utf8Valido(QByteArrayView bytes)
{
    for (qsizetype i = 0; i < bytes.size();) {
        const auto b = static_cast<unsigned char>(bytes[i++]);
        const int seguem = b < 0x80 ? 0 : (b >= 0xC2 && b < 0xE0) ? 1 : (b >= 0xE0 && b < 0xF0) ? 2 : (b >= 0xF0 && b < 0xF5) ? 3 : -1;
        if (seguem < 0 || i + seguem > bytes.size())
            return false;
        for (int k = 0; k < seguem; ++k) {
            if ((static_cast<unsigned char>(bytes[i++]) & 0xC0) != 0x80)
                return false;
        }
    }
    return true;
}

QString esperado(TLeitorArq leitor)
{
    switch (leitor) {
    case TLeitorArq::Inteiro: return QStringLiteral("um número inteiro");
    case TLeitorArq::Decimal: return QStringLiteral("um número");
    case TLeitorArq::Data: return QStringLiteral("uma data (dd/mm/aaaa)");
    case TLeitorArq::DataHora: return QStringLiteral("uma data e hora (dd/mm/aaaa hh:nn:ss)");
    case TLeitorArq::Texto: break;
    }
    return QStringLiteral("um texto");
}

} // namespace

QString TextoArq(TLeitorArq leitor, const QVariant &valor)
{
    const bool data = leitor == TLeitorArq::Data || leitor == TLeitorArq::DataHora;
    switch (valor.typeId()) {
    case QMetaType::QDate:
        return valor.toDate().toString(QStringLiteral("dd/MM/yyyy"));
    case QMetaType::QDateTime:
        // The regional form leaves out a midnight time, so an empty date-time comes back as it went.
        return valor.toDateTime().toString(valor.toDateTime().time() == QTime(0, 0) ? QStringLiteral("dd/MM/yyyy")
                                                                                   : QStringLiteral("dd/MM/yyyy HH:mm:ss"));
    case QMetaType::QTime:
        return valor.toTime().isValid() ? valor.toTime().toString(QStringLiteral("HH:mm:ss")) : QStringLiteral("00:00:00");
    case QMetaType::Double:
        return decimalRegional(FloatToStrPonto(valor.toDouble()));
    default:
        break;
    }
    QString texto = valor.toString().trimmed();
    if (texto.isEmpty())
        return data ? DataVazia : QString();
    if (leitor == TLeitorArq::Decimal)
        return decimalRegional(texto);
    // A tab or a line break would split the record (an XML kept with its line breaks): a blank
    // in its place keeps the file readable.
    static const QRegularExpression quebras(QStringLiteral("\r\n|[\t\r\n]"));
    if (texto.contains(QLatin1Char('\t')) || texto.contains(QLatin1Char('\n')) || texto.contains(QLatin1Char('\r')))
        texto.replace(quebras, QStringLiteral(" "));
    return texto;
}

// --- writing ------------------------------------------------------------------------------------

bool TGravadorArqCompras::Abrir()
{
    if (m_arquivo.open(QIODevice::WriteOnly))
        return true;
    m_erro = QStringLiteral("Não foi possível gravar o arquivo %1: %2")
                 .arg(QDir::toNativeSeparators(m_arquivo.fileName()), m_arquivo.errorString());
    return false;
}

void TGravadorArqCompras::GravarLinha(const QString &tipo, std::span<const TColunaArq> colunas, const TQ &q)
{
    QString linha = tipo;
    for (int i = 0; i < int(colunas.size()); ++i)
        linha += Tab + TextoArq(colunas[size_t(i)].leitor, q.valueAt(i));
    linha += QLatin1String("\r\n");
    m_arquivo.write(ParaWindows1252(linha));
}

bool TGravadorArqCompras::Concluir()
{
    if (m_arquivo.commit())
        return true;
    m_erro = QStringLiteral("Não foi possível gravar o arquivo %1: %2")
                 .arg(QDir::toNativeSeparators(m_arquivo.fileName()), m_arquivo.errorString());
    return false;
}

// --- reading ------------------------------------------------------------------------------------

bool TLeitorArqCompras::recusar(const QString &motivo)
{
    m_erro = QStringLiteral("O arquivo %1 não foi importado e nenhuma nota foi excluída: %2.")
                 .arg(QDir::toNativeSeparators(m_arquivo), motivo);
    return false;
}

bool TLeitorArqCompras::ler(const std::function<bool(const QByteArray &, int)> &aCada)
{
    QFile arquivo(m_arquivo);
    if (!arquivo.open(QIODevice::ReadOnly)) {
        m_erro = QStringLiteral("Não foi possível ler o arquivo %1: %2")
                     .arg(QDir::toNativeSeparators(m_arquivo), arquivo.errorString());
        return false;
    }
    for (int numero = 1; !arquivo.atEnd(); ++numero) {
        QByteArray linha = arquivo.readLine();
        if (numero == 1 && linha.startsWith("\xEF\xBB\xBF")) {
            linha.remove(0, 3);
            m_bom = true;
        }
        if (linha.endsWith('\n'))
            linha.chop(1);
        if (linha.endsWith('\r'))
            linha.chop(1);
        if (!aCada(linha, numero))
            return false;
    }
    if (arquivo.error() != QFileDevice::NoError) {
        m_erro = QStringLiteral("Não foi possível ler o arquivo %1: %2")
                     .arg(QDir::toNativeSeparators(m_arquivo), arquivo.errorString());
        return false;
    }
    return true;
}

bool TLeitorArqCompras::converter(const QString &texto, TLinhaArq &linha, bool comLiterais)
{
    const QList<QStringView> partes = QStringView(texto).split(u'\t');
    linha.literais.clear();
    linha.tipo = partes.first().toString();
    const bool nota = linha.tipo == QLatin1String("C");
    if (!nota && linha.tipo != QLatin1String("CE")) {
        linha.tipo.clear();
        return true;
    }
    const auto colunas = nota ? TCompraExpImp_DBI::ColunasCompra() : TCompraExpImp_DBI::ColunasEstMov();
    if (partes.size() - 1 != qsizetype(colunas.size()))
        return recusar(QStringLiteral("a linha %1 tem %2 colunas depois de \"%3\" e deveria ter %4 "
                                      "(um valor com tabulação ou quebra de linha?)")
                           .arg(linha.numero).arg(partes.size() - 1).arg(linha.tipo).arg(colunas.size()));
    linha.literais.reserve(qsizetype(colunas.size()));
    for (int i = 0; i < int(colunas.size()); ++i) {
        const TColunaArq &coluna = colunas[size_t(i)];
        // Any text will do: only its quoting is left, and the check needs none.
        if (!comLiterais && coluna.leitor == TLeitorArq::Texto)
            continue;
        auto literal = TCompraExpImp_DBI::Literal(coluna.leitor, partes.at(i + 1));
        if (!literal)
            return recusar(QStringLiteral("linha %1, coluna %2 (%3): \"%4\" não é %5")
                               .arg(linha.numero).arg(i + 1).arg(QLatin1String(coluna.nome), partes.at(i + 1).toString(),
                                                                  esperado(coluna.leitor)));
        if (comLiterais)
            linha.literais << *literal;
    }
    return true;
}

bool TLeitorArqCompras::Verificar()
{
    m_linhas = 0;
    m_contagem = {};
    m_bom = false;
    bool multibyte = false;
    bool utf8 = true;
    bool algumaLinha = false;
    TLinhaArq linha;
    const bool lido = ler([&](const QByteArray &bytes, int numero) {
        if (bytes.contains('\0'))
            return recusar(QStringLiteral("a linha %1 tem caracteres nulos; não é um arquivo de notas exportado").arg(numero));
        const bool alto = std::any_of(bytes.begin(), bytes.end(), [](char b) { return b & 0x80; });
        // Only lines with bytes above 127 can tell UTF-8 from the code page.
        if (alto && !m_bom) {
            multibyte = true;
            utf8 = utf8 && utf8Valido(bytes);
        }
        const QString texto = m_bom ? QString::fromUtf8(bytes) : DeWindows1252(bytes);
        m_linhas = linha.numero = numero;
        algumaLinha = algumaLinha || !texto.trimmed().isEmpty();
        if (!converter(texto, linha, false))
            return false;
        if (linha.tipo == QLatin1String("C"))
            ++m_contagem.notas;
        else if (!linha.tipo.isEmpty())
            ++m_contagem.movimentos;
        return true;
    });
    if (!lido)
        return false;
    if (algumaLinha && m_contagem.notas + m_contagem.movimentos == 0)
        return recusar(QStringLiteral("não há nele nenhuma linha \"C\" nem \"CE\"; não é um arquivo de notas exportado"));
    m_utf8 = m_bom || (multibyte && utf8);
    return true;
}

bool TLeitorArqCompras::Percorrer(const std::function<bool(const TLinhaArq &)> &aCada)
{
    TLinhaArq linha;
    return ler([&](const QByteArray &bytes, int numero) {
        linha.numero = numero;
        return converter(m_utf8 ? QString::fromUtf8(bytes) : DeWindows1252(bytes), linha, true) && aCada(linha);
    });
}
