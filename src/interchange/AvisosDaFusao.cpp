#include "interchange/AvisosDaFusao.h"

#include "data/DE.h"
#include "platform/Translations.h"

using namespace Qt::StringLiterals;

namespace
{
constexpr Translations base_em_uso{
    u"Este ficheiro é a base de dados em uso e não pode ser importado para si próprio:",
    u"Este arquivo é o banco de dados em uso e não pode ser importado para si mesmo:",
    u"This file is the database in use and cannot be imported into itself:",
    u"Este archivo es la base de datos en uso y no se puede importar en sí mismo:",
    u"Questo file è il database in uso e non può essere importato in sé stesso:",
    u"Ce fichier est la base de données en cours d’utilisation et ne peut pas être importé dans "
    u"lui-même\u00a0:",
    u"Diese Datei ist die gerade verwendete Datenbank und kann nicht in sich selbst importiert werden:",
};
constexpr Translations ficheiro_grande{
    u"O ficheiro é demasiado grande para ser importado (no máximo 256 MB):",
    u"O arquivo é grande demais para ser importado (no máximo 256 MB):",
    u"The file is too large to be imported (256 MB at most):",
    u"El archivo es demasiado grande para importarlo (256 MB como máximo):",
    u"Il file è troppo grande per essere importato (al massimo 256 MB):",
    u"Le fichier est trop volumineux pour être importé (256 Mo au maximum)\u00a0:",
    u"Die Datei ist zu groß für den Import (höchstens 256 MB):",
};
constexpr Translations nada_se_escreve{
    u"Não foi importado nada, porque não é possível escrever na base de dados:",
    u"Nada foi importado, porque não é possível gravar no banco de dados:",
    u"Nothing was imported, because the database cannot be written to:",
    u"No se ha importado nada, porque no se puede escribir en la base de datos:",
    u"Non è stato importato nulla, perché non è possibile scrivere nel database:",
    u"Rien n’a été importé, car il est impossible d’écrire dans la base de données\u00a0:",
    u"Es wurde nichts importiert, weil nicht in die Datenbank geschrieben werden kann:",
};
constexpr Translations verifique{
    u"Verifique se outro programa a está a usar, se há espaço no disco e se o ficheiro não está protegido "
    u"contra escrita.",
    u"Verifique se outro programa o está usando, se há espaço no disco e se o arquivo não está protegido "
    u"contra gravação.",
    u"Check whether another program is using it, whether the disk has room, and whether the file is "
    u"write-protected.",
    u"Compruebe si la está usando otro programa, si hay espacio en el disco y si el archivo está protegido "
    u"contra escritura.",
    u"Verificare se un altro programma lo sta usando, se c’è spazio sul disco e se il file è protetto da "
    u"scrittura.",
    u"Vérifiez si un autre programme l’utilise, s’il reste de la place sur le disque et si le fichier est "
    u"protégé en écriture.",
    u"Prüfen Sie, ob ein anderes Programm sie verwendet, ob auf dem Datenträger Platz ist und ob die Datei "
    u"schreibgeschützt ist.",
};
constexpr Translations incompleta{
    u"A importação não ficou completa: a base de dados não aceitou tudo.",
    u"A importação não ficou completa: o banco de dados não aceitou tudo.",
    u"The import is not complete: the database did not take everything.",
    u"La importación no está completa: la base de datos no lo ha aceptado todo.",
    u"L’importazione non è completa: il database non ha accettato tutto.",
    u"L’importation n’est pas complète\u00a0: la base de données n’a pas tout accepté.",
    u"Der Import ist nicht vollständig: Die Datenbank hat nicht alles angenommen.",
};
constexpr std::array<Translations, 3> guardados{{
    {u"Contactos guardados", u"Contatos gravados", u"Contacts stored", u"Contactos guardados",
     u"Contatti salvati", u"Contacts enregistrés\u00a0", u"Gespeicherte Kontakte"},
    {u"Tarefas guardadas", u"Tarefas gravadas", u"Tasks stored", u"Tareas guardadas", u"Attività salvate",
     u"Tâches enregistrées\u00a0", u"Gespeicherte Aufgaben"},
    {u"Memos guardados", u"Memos gravados", u"Memos stored", u"Notas guardadas", u"Memo salvati",
     u"Mémos enregistrés\u00a0", u"Gespeicherte Memos"},
}};
// Before the number, where the answer to the last of them is still to come.
constexpr Translations pelo_menos{u"pelo menos", u"pelo menos", u"at least",  u"al menos",
                                  u"almeno",     u"au moins",   u"mindestens"};
constexpr Translations em_duplicado{
    u"O que foi guardado viria em duplicado numa nova importação: antes dela, reponha uma cópia de "
    u"segurança da base de dados.",
    u"O que foi gravado viria em duplicidade em uma nova importação: antes dela, restaure uma cópia de "
    u"segurança do banco de dados.",
    u"A new import would add a second time what was stored: restore a backup of the database first.",
    u"Una nueva importación duplicaría lo que se ha guardado: antes, restaure una copia de seguridad de la "
    u"base de datos.",
    u"Una nuova importazione duplicherebbe ciò che è stato salvato: prima ripristinare una copia di backup "
    u"del database.",
    u"Une nouvelle importation ajouterait une seconde fois ce qui a été enregistré\u00a0: restaurez "
    u"d’abord une sauvegarde de la base de données.",
    u"Ein neuer Import brächte das Gespeicherte doppelt: Spielen Sie vorher eine Sicherung der Datenbank "
    u"ein.",
};
constexpr Translations sem_duplicado{
    u"Quando o servidor responder, e dentro de 30 dias, importe o mesmo ficheiro outra vez: o que já foi "
    u"guardado não vem em duplicado.",
    u"Quando o servidor responder, e dentro de 30 dias, importe o mesmo arquivo de novo: o que já foi "
    u"gravado não vem em duplicidade.",
    u"Once the server answers, and within 30 days, import the same file again: what is stored already is "
    u"not added a second time.",
    u"Cuando el servidor responda, y en un plazo de 30 días, importe de nuevo el mismo archivo: lo que ya "
    u"se ha guardado no se duplica.",
    u"Quando il server risponde, ed entro 30 giorni, importare di nuovo lo stesso file: ciò che è già "
    u"stato salvato non viene duplicato.",
    u"Dès que le serveur répond, et dans les 30 jours, importez de nouveau le même fichier\u00a0: ce qui "
    u"est déjà enregistré n’est pas ajouté une seconde fois.",
    u"Sobald der Server antwortet, und innerhalb von 30 Tagen, importieren Sie dieselbe Datei noch einmal: "
    u"Was schon gespeichert ist, kommt nicht doppelt.",
};
constexpr auto fim_de_linha = "\r\n"_L1;

// A line: of the contacts, the tasks or the memos.
QString Quantos(std::size_t de_que, int guardados_la, int lidos, bool por_saber, const QString &idioma)
{
    const QString antes =
        por_saber && guardados_la < lidos ? translated(pelo_menos, idioma) + u' ' : QString();
    return translated(guardados[de_que], idioma) + u": %1%2 / %3"_s.arg(antes).arg(guardados_la).arg(lidos) +
           fim_de_linha;
}
} // namespace

QString avisos_da_fusao::Base_Em_Uso(const QString &ficheiro, const QString &idioma)
{
    return translated(base_em_uso, idioma) + fim_de_linha + ficheiro;
}

QString avisos_da_fusao::Ficheiro_Grande(const QString &ficheiro, const QString &idioma)
{
    return translated(ficheiro_grande, idioma) + fim_de_linha + ficheiro;
}

QString avisos_da_fusao::Nada_Se_Escreve(const QString &base, const QString &idioma)
{
    return translated(nada_se_escreve, idioma) + fim_de_linha + base + fim_de_linha + fim_de_linha +
           translated(verifique, idioma);
}

QString avisos_da_fusao::Incompleta(const Fusao &fusao, Onde onde, const QString &idioma)
{
    QString dito = translated(incompleta, idioma) + fim_de_linha;
    for (std::size_t i = 0; i < guardados.size(); ++i) {
        const Fusao::Contagem &contagem = fusao.Contagens()[i];
        dito += Quantos(i, contagem.Guardados, contagem.Lidos, onde == Onde::ServidorPorSaber, idioma);
    }
    dito += fim_de_linha;
    if (onde != Onde::Ficheiro) return dito + translated(sem_duplicado, idioma) + fim_de_linha + fim_de_linha;
    return dito + translated(verifique, idioma) + fim_de_linha + translated(em_duplicado, idioma) +
           fim_de_linha + fim_de_linha;
}

QString avisos_da_fusao::Servidor_Perdido(int guardados_la, int lidos, Onde onde, const QString &idioma)
{
    return translated(incompleta, idioma) + fim_de_linha +
           Quantos(0, guardados_la, lidos, onde == Onde::ServidorPorSaber, idioma) + fim_de_linha +
           translated(sem_duplicado, idioma);
}

avisos_da_fusao::Onde avisos_da_fusao::Onde_Se_Guardou(DE &de)
{
    if (!de.Num_Servidor()) return Onde::Ficheiro;
    const bool por_saber = de.Destino_Da_Escrita(de.Escritas_Perdidas()) == Fate::Unknown;
    return por_saber ? Onde::ServidorPorSaber : Onde::Servidor;
}
