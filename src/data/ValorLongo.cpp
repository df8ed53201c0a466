#include "data/ValorLongo.h"

#include "data/Geral.h"
#include "platform/Platform.h"
#include "platform/Translations.h"


namespace
{
// clang-format off
constexpr Translations palavras{
    u"Este valor tem %1 caracteres, e o programa só guarda até %2. Escolha um mais curto. Nada foi gravado.",
    u"Este valor tem %1 caracteres, e o programa só guarda até %2. Escolha um mais curto. Nada foi gravado.",
    u"This value has %1 characters, and the program keeps %2 at most. Choose a shorter one. Nothing was stored.",
    u"Este valor tiene %1 caracteres, y el programa solo guarda hasta %2. Elija uno más corto. No se ha guardado nada.",
    u"Questo valore ha %1 caratteri, e il programma ne conserva al massimo %2. Sceglierne uno più corto. Non è stato salvato nulla.",
    u"Cette valeur a %1 caractères, et le programme n’en conserve que %2. Choisissez-en une plus courte. Rien n’a été enregistré.",
    u"Dieser Wert hat %1 Zeichen, das Programm merkt sich höchstens %2. Wählen Sie einen kürzeren. Es wurde nichts gespeichert."};
// clang-format on
} // namespace

bool Cabe_No_Ini(const QString &valor) { return valor.size() <= IniFile::longestValue; }

void Recusar_Valor_Longo(const QString &valor, const Geral &geral, Platform &platform, QWidget *dono)
{
    const QString aviso = translated(palavras, spokenLanguage(geral.IdiomaActual));
    platform.boxes.show(aviso.arg(valor.size()).arg(IniFile::longestValue) + QStringLiteral("\r\n\r\n") +
                            valor,
                        box::stop, dono);
}
