// What the merge says where it cannot go on or does not end, word by word in each language.
#include "interchange/AvisosDaFusao.h"
#include "interchange/DE2.h"
#include "testlib/Sistema.h"
#include "testlib/Teste.h"

using namespace Qt::StringLiterals;

namespace
{
struct Palavras {
    const char *idioma;
    const char16_t *em_uso;
    const char16_t *grande;
    const char16_t *nada;
    const char16_t *verifique;
    const char16_t *incompleta;
    const char16_t *contactos;
    const char16_t *tarefas;
    const char16_t *memos;
    const char16_t *em_duplicado;
    const char16_t *sem_duplicado;
    const char16_t *pelo_menos;
};

constexpr Palavras palavras[] = {
    {"PortuguesPT", u"Este ficheiro é a base de dados em uso e não pode ser importado para si próprio:",
     u"O ficheiro é demasiado grande para ser importado (no máximo 256 MB):",
     u"Não foi importado nada, porque não é possível escrever na base de dados:",
     u"Verifique se outro programa a está a usar, se há espaço no disco e se o ficheiro não está protegido "
     u"contra escrita.",
     u"A importação não ficou completa: a base de dados não aceitou tudo.", u"Contactos guardados",
     u"Tarefas guardadas", u"Memos guardados",
     u"O que foi guardado viria em duplicado numa nova importação: antes dela, reponha uma cópia de "
     u"segurança da base de dados.",
     u"Quando o servidor responder, e dentro de 30 dias, importe o mesmo ficheiro outra vez: o que já "
     u"foi guardado não vem em duplicado.",
     u"pelo menos"},
    {"PortuguesBR", u"Este arquivo é o banco de dados em uso e não pode ser importado para si mesmo:",
     u"O arquivo é grande demais para ser importado (no máximo 256 MB):",
     u"Nada foi importado, porque não é possível gravar no banco de dados:",
     u"Verifique se outro programa o está usando, se há espaço no disco e se o arquivo não está protegido "
     u"contra gravação.",
     u"A importação não ficou completa: o banco de dados não aceitou tudo.", u"Contatos gravados",
     u"Tarefas gravadas", u"Memos gravados",
     u"O que foi gravado viria em duplicidade em uma nova importação: antes dela, restaure uma cópia de "
     u"segurança do banco de dados.",
     u"Quando o servidor responder, e dentro de 30 dias, importe o mesmo arquivo de novo: o que já "
     u"foi gravado não vem em duplicidade.",
     u"pelo menos"},
    {"InglesUK", u"This file is the database in use and cannot be imported into itself:",
     u"The file is too large to be imported (256 MB at most):",
     u"Nothing was imported, because the database cannot be written to:",
     u"Check whether another program is using it, whether the disk has room, and whether the file is "
     u"write-protected.",
     u"The import is not complete: the database did not take everything.", u"Contacts stored",
     u"Tasks stored", u"Memos stored",
     u"A new import would add a second time what was stored: restore a backup of the database first.",
     u"Once the server answers, and within 30 days, import the same file again: what is stored "
     u"already is not added a second time.",
     u"at least"},
    {"EspanholES", u"Este archivo es la base de datos en uso y no se puede importar en sí mismo:",
     u"El archivo es demasiado grande para importarlo (256 MB como máximo):",
     u"No se ha importado nada, porque no se puede escribir en la base de datos:",
     u"Compruebe si la está usando otro programa, si hay espacio en el disco y si el archivo está protegido "
     u"contra escritura.",
     u"La importación no está completa: la base de datos no lo ha aceptado todo.", u"Contactos guardados",
     u"Tareas guardadas", u"Notas guardadas",
     u"Una nueva importación duplicaría lo que se ha guardado: antes, restaure una copia de seguridad de la "
     u"base de datos.",
     u"Cuando el servidor responda, y en un plazo de 30 días, importe de nuevo el mismo archivo: lo "
     u"que ya se ha guardado no se duplica.",
     u"al menos"},
    {"ItalianoIT", u"Questo file è il database in uso e non può essere importato in sé stesso:",
     u"Il file è troppo grande per essere importato (al massimo 256 MB):",
     u"Non è stato importato nulla, perché non è possibile scrivere nel database:",
     u"Verificare se un altro programma lo sta usando, se c’è spazio sul disco e se il file è protetto da "
     u"scrittura.",
     u"L’importazione non è completa: il database non ha accettato tutto.", u"Contatti salvati",
     u"Attività salvate", u"Memo salvati",
     u"Una nuova importazione duplicherebbe ciò che è stato salvato: prima ripristinare una copia di backup "
     u"del database.",
     u"Quando il server risponde, ed entro 30 giorni, importare di nuovo lo stesso file: ciò che è "
     u"già stato salvato non viene duplicato.",
     u"almeno"},
    {"FrancesFR",
     u"Ce fichier est la base de données en cours d’utilisation et ne peut pas être importé dans "
     u"lui-même\u00a0:",
     u"Le fichier est trop volumineux pour être importé (256 Mo au maximum)\u00a0:",
     u"Rien n’a été importé, car il est impossible d’écrire dans la base de données\u00a0:",
     u"Vérifiez si un autre programme l’utilise, s’il reste de la place sur le disque et si le fichier est "
     u"protégé en écriture.",
     u"L’importation n’est pas complète\u00a0: la base de données n’a pas tout accepté.",
     u"Contacts enregistrés\u00a0", u"Tâches enregistrées\u00a0", u"Mémos enregistrés\u00a0",
     u"Une nouvelle importation ajouterait une seconde fois ce qui a été enregistré\u00a0: restaurez d’abord "
     u"une sauvegarde de la base de données.",
     u"Dès que le serveur répond, et dans les 30 jours, importez de nouveau le même fichier\u00a0: ce "
     u"qui est déjà enregistré n’est pas ajouté une seconde fois.",
     u"au moins"},
    {"AlemaoDE",
     u"Diese Datei ist die gerade verwendete Datenbank und kann nicht in sich selbst importiert werden:",
     u"Die Datei ist zu groß für den Import (höchstens 256 MB):",
     u"Es wurde nichts importiert, weil nicht in die Datenbank geschrieben werden kann:",
     u"Prüfen Sie, ob ein anderes Programm sie verwendet, ob auf dem Datenträger Platz ist und ob die Datei "
     u"schreibgeschützt ist.",
     u"Der Import ist nicht vollständig: Die Datenbank hat nicht alles angenommen.", u"Gespeicherte Kontakte",
     u"Gespeicherte Aufgaben", u"Gespeicherte Memos",
     u"Ein neuer Import brächte das Gespeicherte doppelt: Spielen Sie vorher eine Sicherung der Datenbank "
     u"ein.",
     u"Sobald der Server antwortet, und innerhalb von 30 Tagen, importieren Sie dieselbe Datei noch "
     u"einmal: Was schon gespeichert ist, kommt nicht doppelt.",
     u"mindestens"},
};

QString Em_Linhas(const QStringList &linhas) { return linhas.join("\r\n"_L1); }
QString De(const char16_t *texto) { return QString::fromUtf16(texto); }
} // namespace

class TestAvisosDaFusao : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cada_aviso_esta_escrito_em_cada_lingua_data()
    {
        QTest::addColumn<const Palavras *>("em");
        for (const Palavras &em : palavras)
            QTest::newRow(em.idioma) << &em;
    }
    void cada_aviso_esta_escrito_em_cada_lingua()
    {
        QFETCH(const Palavras *const, em);
        const QString idioma = QString::fromLatin1(em->idioma);
        namespace avisos = avisos_da_fusao;
        QCOMPARE(avisos::Base_Em_Uso(u"a.mdb"_s, idioma), Em_Linhas({De(em->em_uso), u"a.mdb"_s}));
        QCOMPARE(avisos::Ficheiro_Grande(u"a.mdb"_s, idioma), Em_Linhas({De(em->grande), u"a.mdb"_s}));
        QCOMPARE(avisos::Nada_Se_Escreve(u"b.mdb"_s, idioma),
                 Em_Linhas({De(em->nada), u"b.mdb"_s, {}, De(em->verifique)}));

        Sistema s;
        DE2 de2(s.Base());
        const Fusao fusao(s.geral, de2, {});
        const QStringList quantos{De(em->incompleta),
                                  De(em->contactos) + u": 0 / 0"_s,
                                  De(em->tarefas) + u": 0 / 0"_s,
                                  De(em->memos) + u": 0 / 0"_s,
                                  {}};
        QCOMPARE(avisos::Incompleta(fusao, avisos::Onde::Ficheiro, idioma),
                 Em_Linhas(quantos + QStringList{De(em->verifique), De(em->em_duplicado), {}, {}}));
        QCOMPARE(avisos::Incompleta(fusao, avisos::Onde::Servidor, idioma),
                 Em_Linhas(quantos + QStringList{De(em->sem_duplicado), {}, {}}));
        QCOMPARE(
            avisos::Servidor_Perdido(300, 512, avisos::Onde::Servidor, idioma),
            Em_Linhas({De(em->incompleta), De(em->contactos) + u": 300 / 512"_s, {}, De(em->sem_duplicado)}));
        QCOMPARE(avisos::Servidor_Perdido(300, 512, avisos::Onde::ServidorPorSaber, idioma),
                 Em_Linhas({De(em->incompleta),
                            De(em->contactos) + u": "_s + De(em->pelo_menos) + u" 300 / 512"_s,
                            {},
                            De(em->sem_duplicado)}));
        QCOMPARE(avisos::Servidor_Perdido(512, 512, avisos::Onde::ServidorPorSaber, idioma)
                     .count(u": 512 / 512"_s),
                 1);
    }
};

MORVEX_TESTE(TestAvisosDaFusao)
#include "test_AvisosDaFusao.moc"
