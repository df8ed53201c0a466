// The words of morvex-servidor, in Portuguese and in English, by the administrator's language.
#pragma once

#include <array>
#include <QString>

namespace palavras
{
using Frase = std::array<const char16_t *, 2>; // Portuguese, English

enum class Lingua { Portugues, Ingles };

// Of the environment: LC_ALL, LC_MESSAGES, LANG. English for any but Portuguese.
Lingua Do_Ambiente();

QString Dizer(const Frase &frase, Lingua lingua);

// By which the program's own error texts call it.
QString Nome(Lingua lingua);

// clang-format off
inline constexpr Frase ajuda{
u"Uso: morvex-servidor criar ENDEREÇO [--idioma pt|br|en|fr | --vazia] [--posto PAPEL]\n"
"     morvex-servidor atualizar ENDEREÇO [--posto PAPEL]\n"
"     morvex-servidor mudar FICHEIRO ENDEREÇO [--posto PAPEL]\n"
"     morvex-servidor trazer ENDEREÇO FICHEIRO\n"
"     morvex-servidor verificar ENDEREÇO [--posto PAPEL]\n"
"     morvex-servidor --help | --version\n\n"
"Prepara num servidor PostgreSQL a base de dados que vários postos do Morvex partilham.\n\n"
"  criar      Faz as tabelas e os textos numa base de dados que existe e está vazia, e as linhas com que se começa.\n"
"  atualizar  Traz à base de dados o que esta versão do programa acrescenta.\n"
"  mudar      Leva tudo o que um ficheiro morvex.mdb tem para uma base de dados sem dados.\n"
"  trazer     Faz de tudo o que a base de dados tem um ficheiro novo: a cópia de segurança, ou o regresso.\n"
"  verificar  Diz se a base de dados está como o programa precisa.\n\n"
"ENDEREÇO é postgresql://PAPEL@SERVIDOR/BASE, com o papel que é dono da base de dados.\n"
"A palavra-passe não se escreve nele: fica em ~/.pgpass.\n\n"
"  --idioma LÍNGUA  A língua das linhas com que se começa: pt, br, en ou fr. Sem ela é perguntada.\n"
"  --vazia          Nenhumas linhas com que se comece; para mudar um ficheiro a seguir.\n"
"  --posto PAPEL    O papel com que os postos entram; sem ele é morvex.\n"
"  -h, --help       Mostra esta ajuda e termina.\n"
"  -v, --version    Mostra a versão e termina.\n\n"
"Tudo é feito ou nada é feito. Termina com 0 quando foi feito; 1 quando foi recusado ou falhou;\n"
"2 quando a linha não se entende; 3 quando o servidor não foi alcançado ou não deixou entrar;\n"
"4 quando verificar achou alguma coisa.\n",
u"Usage: morvex-servidor criar ADDRESS [--idioma pt|br|en|fr | --vazia] [--posto ROLE]\n"
"       morvex-servidor atualizar ADDRESS [--posto ROLE]\n"
"       morvex-servidor mudar FILE ADDRESS [--posto ROLE]\n"
"       morvex-servidor trazer ADDRESS FILE\n"
"       morvex-servidor verificar ADDRESS [--posto ROLE]\n"
"       morvex-servidor --help | --version\n\n"
"Sets up, on a PostgreSQL server, the database that several desks of Morvex share.\n\n"
"  criar      (create) Makes tables and texts in a database that is there and empty, and the rows to begin with.\n"
"  atualizar  (update) Brings the database what this version of the program adds.\n"
"  mudar      (move) Takes all that a file morvex.mdb holds to a database without data.\n"
"  trazer     (fetch) Makes a new file of all that the database holds: the backup, or the way back.\n"
"  verificar  (check) Says whether the database is as the program needs it.\n\n"
"ADDRESS is postgresql://ROLE@SERVER/DATABASE, with the role that owns the database.\n"
"The password is not written into it: it stands in ~/.pgpass.\n\n"
"  --idioma LANGUAGE  The language of the rows to begin with: pt, br, en or fr. Without it, it is asked for.\n"
"  --vazia            No rows to begin with; for a file that is moved next.\n"
"  --posto ROLE       The role by which the desks log in; morvex without it.\n"
"  -h, --help         Shows this help and ends.\n"
"  -v, --version      Shows the version and ends.\n\n"
"All is done or nothing is. Ends with 0 when it was done; 1 when it was refused or failed;\n"
"2 when the line is not understood; 3 when the server was not reached or did not let in;\n"
"4 when verificar found something.\n"};

inline constexpr Frase ver_ajuda{u"A ajuda é mostrada por: morvex-servidor --help", u"The help is shown by: morvex-servidor --help"};
inline constexpr Frase falta_a_ordem{u"Falta dizer o que fazer.", u"It is not said what to do."};
inline constexpr Frase ordem_desconhecida{u"Não há esta ordem: %1", u"There is no such order: %1"};
inline constexpr Frase opcao_desconhecida{u"Opção desconhecida: %1", u"Unknown option: %1"};
inline constexpr Frase opcao_alheia{u"Esta opção não pertence a %2: %1", u"This option does not belong to %2: %1"};
inline constexpr Frase falta_o_valor{u"Falta o valor de %1.", u"The value of %1 is missing."};
inline constexpr Frase lingua_desconhecida{u"Não há linhas para começar nesta língua: %1", u"There are no rows to begin with in this language: %1"};
inline constexpr Frase palavras_a_mais{u"%1 quer %2 e mais nada.", u"%1 takes %2 and nothing else."};
inline constexpr Frase morada{u"ENDEREÇO", u"ADDRESS"};
inline constexpr Frase ficheiro_e_morada{u"FICHEIRO ENDEREÇO", u"FILE ADDRESS"};
inline constexpr Frase morada_e_ficheiro{u"ENDEREÇO FICHEIRO", u"ADDRESS FILE"};
inline constexpr Frase nao_e_morada{u"Isto não é o endereço de um servidor: %1", u"This is no address of a server: %1"};
inline constexpr Frase idioma_e_vazia{u"--idioma e --vazia excluem-se.", u"--idioma and --vazia exclude each other."};
inline constexpr Frase que_lingua{u"Em que língua? pt, br, en ou fr: ", u"In which language? pt, br, en or fr: "};
inline constexpr Frase sem_lingua{u"Falta a língua das linhas com que se começa: --idioma ou --vazia.", u"The language of the rows to begin with is missing: --idioma or --vazia."};

inline constexpr Frase criada{u"A base de dados está pronta: %1", u"The database is ready: %1"};
inline constexpr Frase actualizada{u"A base de dados tinha tido %1 passos e teve agora %2; textos acrescentados: %3.", u"The database had had %1 steps and has now had %2; texts added: %3."};
inline constexpr Frase ordem_refeita{u"A ordem das letras do servidor tinha mudado: os índices foram feitos de novo.", u"The server's order of letters had changed: the indexes were made anew."};
inline constexpr Frase linhas{u"%1: %2 linhas", u"%1: %2 rows"};
inline constexpr Frase mudado{u"O ficheiro está agora no servidor. Guarde-o; nenhum posto o deve usar mais.", u"The file is now on the server. Keep it; no desk should use it any more."};
inline constexpr Frase trazido{u"O ficheiro está feito: %1", u"The file is made: %1"};
inline constexpr Frase tudo_bem{u"Está tudo como deve ser.", u"All is as it should be."};

inline constexpr Frase defeito_numero{u"Os passos da base de dados e os do programa não são os mesmos (%1): corra atualizar.", u"The steps of the database and the program's are not the same (%1): run atualizar."};
inline constexpr Frase defeito_tabela{u"Falta uma tabela ou uma coluna: %1", u"A table or a column is missing: %1"};
inline constexpr Frase defeito_gatilho{u"Falta um gatilho ou está desligado: %1. Corra atualizar.", u"A trigger is missing or switched off: %1. Run atualizar."};
inline constexpr Frase defeito_contador{u"Falta o contador da tabela %1. Corra atualizar.", u"The counter of the table %1 is missing. Run atualizar."};
inline constexpr Frase defeito_ordem{u"A ordem das letras do servidor mudou (%1): corra atualizar.", u"The server's order of letters has changed (%1): run atualizar."};
inline constexpr Frase defeito_letras{u"O servidor compara %1 letras de outra maneira que o ficheiro: corra atualizar.", u"The server compares %1 letters otherwise than the file: run atualizar."};
inline constexpr Frase defeito_direitos{u"Os postos podem a mais ou a menos: %1. Corra atualizar.", u"The desks may too much or too little: %1. Run atualizar."};
inline constexpr Frase defeito_textos{u"Faltam %1 textos do programa: corra atualizar.", u"%1 texts of the program are missing: run atualizar."};
inline constexpr Frase defeito_codigo{u"A base de dados não guarda todas as letras (%1): tem de ser UTF8.", u"The database does not keep every letter (%1): it must be UTF8."};
// clang-format on
} // namespace palavras
