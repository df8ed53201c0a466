#include "cards/Codificacoes.h"

#include "platform/Translations.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace
{
struct Regiao {
    const char *codificacao;
    Translations palavras;
};

// clang-format off
constexpr std::array regioes{
    Regiao{"windows-1252", {u"Europa Ocidental", u"Europa Ocidental", u"Western Europe", u"Europa occidental", u"Europa occidentale", u"Europe occidentale", u"Westeuropa"}},
    Regiao{"ISO-8859-15", {u"Europa Ocidental", u"Europa Ocidental", u"Western Europe", u"Europa occidental", u"Europa occidentale", u"Europe occidentale", u"Westeuropa"}},
    Regiao{"windows-1250", {u"Europa Central", u"Europa Central", u"Central Europe", u"Europa central", u"Europa centrale", u"Europe centrale", u"Mitteleuropa"}},
    Regiao{"windows-1251", {u"Cirílico", u"Cirílico", u"Cyrillic", u"Cirílico", u"Cirillico", u"Cyrillique", u"Kyrillisch"}},
    Regiao{"KOI8-R", {u"Cirílico", u"Cirílico", u"Cyrillic", u"Cirílico", u"Cirillico", u"Cyrillique", u"Kyrillisch"}},
    Regiao{"windows-1253", {u"Grego", u"Grego", u"Greek", u"Griego", u"Greco", u"Grec", u"Griechisch"}},
    Regiao{"windows-1254", {u"Turco", u"Turco", u"Turkish", u"Turco", u"Turco", u"Turc", u"Türkisch"}},
    Regiao{"windows-1255", {u"Hebraico", u"Hebraico", u"Hebrew", u"Hebreo", u"Ebraico", u"Hébreu", u"Hebräisch"}},
    Regiao{"windows-1256", {u"Árabe", u"Árabe", u"Arabic", u"Árabe", u"Arabo", u"Arabe", u"Arabisch"}},
    Regiao{"windows-1257", {u"Báltico", u"Báltico", u"Baltic", u"Báltico", u"Baltico", u"Balte", u"Baltisch"}},
    Regiao{"macintosh", {u"Mac antigo", u"Mac antigo", u"Older Mac", u"Mac antiguo", u"Mac meno recente", u"Ancien Mac", u"Älterer Mac"}},
    Regiao{"Shift_JIS", {u"Japonês", u"Japonês", u"Japanese", u"Japonés", u"Giapponese", u"Japonais", u"Japanisch"}},
    Regiao{"EUC-JP", {u"Japonês", u"Japonês", u"Japanese", u"Japonés", u"Giapponese", u"Japonais", u"Japanisch"}},
    Regiao{"GB18030", {u"Chinês simplificado", u"Chinês simplificado", u"Simplified Chinese", u"Chino simplificado", u"Cinese semplificato", u"Chinois simplifié", u"Chinesisch, vereinfacht"}},
    Regiao{"Big5", {u"Chinês tradicional", u"Chinês tradicional", u"Traditional Chinese", u"Chino tradicional", u"Cinese tradizionale", u"Chinois traditionnel", u"Chinesisch, traditionell"}},
    Regiao{"EUC-KR", {u"Coreano", u"Coreano", u"Korean", u"Coreano", u"Coreano", u"Coréen", u"Koreanisch"}},
};
// clang-format on
} // namespace

QString codificacoes::Palavra(const QByteArray &codificacao, const QString &idioma)
{
    if (codificacao.startsWith("utf-8")) return u"UTF-8"_s;
    if (codificacao.startsWith("utf-")) return QString::fromLatin1(codificacao).toUpper();
    const QByteArray nome = codificacao == "cp1252" ? QByteArray("windows-1252") : codificacao;
    const auto achada =
        std::find_if(regioes.begin(), regioes.end(), [&](const Regiao &r) { return nome == r.codificacao; });
    if (achada == regioes.end()) return QString::fromLatin1(nome);
    return u"%1 (%2)"_s.arg(translated(achada->palavras, idioma), QString::fromLatin1(nome));
}

QByteArray codificacoes::Do_Lugar(int lugar)
{
    return lugar < 1 ? QByteArray() : QByteArray(nomes.at(static_cast<std::size_t>(lugar) - 1));
}
