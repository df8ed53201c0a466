#include "testlib/Sistema.h"

#include "data/Codificar_Pass.h"
#include "data/Esquema.h"
#include "data/Sementes.h"
#include "testlib/Teste.h"

#include <QDir>
#include <QFile>

using namespace Qt::StringLiterals;

namespace
{
// Where the data lie on a server there is no file that anybody could open by mistake.
void Copiar_Enviados(const QString &destino, bool com_base)
{
    const QDir enviados(qEnvironmentVariable("MORVEX_ENVIADOS"));
    QStringList quais{u"*.jpg"_s, u"*.ini"_s, u"*.txt"_s, u"*.wav"_s};
    if (com_base) quais << u"*.mdb"_s;
    for (const QString &nome : enviados.entryList(quais))
        QFile::copy(enviados.filePath(nome), destino + u'/' + nome);
}
} // namespace

Sistema::Sistema(Estado estado, const QString &idioma, Onde onde) : geral(pasta_.path())
{
    teste::caixas_actuais = &caixas;
    const bool no_servidor = Num_Servidor() && onde == Onde::Onde_Se_Pede;
    Copiar_Enviados(Pasta(), !no_servidor);
    if (no_servidor)
        Tomar_Do_Servidor(estado, idioma);
    else
        ligacao_.setConnectionString(u"Data Source='%1'"_s.arg(Base()));
    if (estado == Estado::Semeado) {
        if (!no_servidor) Semear(idioma);
        geral.IdiomaActual = idioma;
        for (bool *direito :
             {&geral.SessaoActual.Adicionar, &geral.SessaoActual.Editar, &geral.SessaoActual.Eliminar,
              &geral.SessaoActual.Grupos, &geral.SessaoActual.Utilizadores})
            *direito = true; // as the start gives them where there are no users
    }
    sem_base_ = estado == Estado::Sem_Base;
    if (no_servidor) geral.CaminhoBD = Base();
    if (estado != Estado::Vazio) geral.ini.Escrever_Ini(u"basedados"_s, u"caminhobd"_s, Base());
    if (sem_base_ && !no_servidor) QFile::remove(Base());
}

Sistema::~Sistema()
{
    if (no_servidor_ != nullptr) no_servidor_->Largar();
    teste::caixas_actuais = nullptr;
}

bool Sistema::Num_Servidor() { return BaseDoPrograma::Pedida(); }

void Sistema::Semear(const QString &idioma)
{
    Sementes sementes = sementes::PT();
    sementes.Idioma = idioma;
    sementes::Semear(geral.de, sementes);
}

// The rows of a first run are there already.
void Sistema::Tomar_Do_Servidor(Estado estado, const QString &idioma)
{
    const bool semeada = estado == Estado::Semeado;
    no_servidor_ = &BaseDoPrograma::Tomar(semeada ? BaseDoPrograma::Linhas::Semeadas : BaseDoPrograma::Linhas::Vazias);
    if (semeada && idioma != u"PortuguesPT"_s) Escrever(u"UPDATE TblConfig SET Idioma='%1'"_s.arg(idioma));
}

QString Sistema::Base() const
{
    if (no_servidor_ == nullptr) return Ficheiro(u"morvex.mdb"_s);
    return sem_base_ ? no_servidor_->De_Nenhuma() : no_servidor_->Do_Posto();
}

Connection &Sistema::Ligacao()
{
    if (no_servidor_ != nullptr) return no_servidor_->Da_Dona();
    if (!ligacao_.isOpen()) ligacao_.Open();
    return ligacao_;
}

Recordset Sistema::Ler(const QString &sql) { return Ligacao().query(sql, {}); }

void Sistema::Escrever(const QString &sql) { Ligacao().execute(sql, {}); }

QStringList Sistema::Linhas(const QString &sql)
{
    const bool de_todas = no_servidor_ != nullptr && sql.contains(u'*') && !sql.contains("TblConfig"_L1);
    QStringList linhas;
    Ligacao().rows(sql, {}, [&](const Row &linha) {
        QStringList campos;
        for (int i = 0; i < linha.columns(); ++i) {
            if (de_todas && qstrcmp(linha.name(i), "versao") == 0) continue;
            const Field campo = linha.field(i);
            campos << (campo.isNull() ? u"<Null>"_s : campo.text());
        }
        linhas << campos.join(u'|');
    });
    return linhas;
}

QString Sistema::Bytes(const QByteArray &bytes) const
{
    const QString digitos = QString::fromLatin1(bytes.toHex());
    return (no_servidor_ == nullptr ? u"x'%1'"_s : u"'\\x%1'::bytea"_s).arg(digitos);
}

QString Sistema::Hex(const QString &coluna) const
{
    return (no_servidor_ == nullptr ? u"hex(%1)"_s : u"coalesce(upper(encode(%1, 'hex')), '')"_s).arg(coluna);
}

// One that a server lacks comes from the program, which forgets what it has read with the language alone.
void Sistema::Perder_Texto(int id)
{
    for (const QString &lingua : {u"PortuguesPT"_s, u"PortuguesBR"_s, u"InglesUK"_s, u"EspanholES"_s, u"ItalianoIT"_s,
                                  u"FrancesFR"_s, u"AlemaoDE"_s})
        Escrever(u"UPDATE TblIdiomas SET %1=NULL WHERE ID=%2"_s.arg(lingua).arg(id));
    if (no_servidor_ == nullptr) return;
    const QString actual = geral.IdiomaActual;
    geral.IdiomaActual = actual == u"InglesUK"_s ? u"PortuguesPT"_s : u"InglesUK"_s;
    geral.Ler_Todo_O_Idioma();
    geral.IdiomaActual = actual;
}

void Sistema::Recusar(const QString &escrita, const QString &tabela, const QString &onde)
{
    const QString sempre = u"CREATE TRIGGER Travao BEFORE %1 ON %2 FOR EACH ROW "_s.arg(escrita, tabela) +
                           (onde.isEmpty() ? QString() : u"WHEN (%1) "_s.arg(onde));
    Escrever(sempre + (no_servidor_ == nullptr ? u"BEGIN SELECT RAISE(ABORT, 'no'); END"_s
                                               : u"EXECUTE FUNCTION ensaio.recusar()"_s));
    recusa_ = tabela;
}

void Sistema::Deixar_De_Recusar()
{
    Escrever(u"DROP TRIGGER Travao"_s + (no_servidor_ == nullptr ? QString() : u" ON "_s + recusa_));
}

void Sistema::Trancar()
{
    if (no_servidor_ == nullptr) return Escrever(u"BEGIN EXCLUSIVE"_s);
    QStringList tabelas{u"gravacoes"_s}; // into which whoever writes puts a key
    for (const Tabela &tabela : esquema::Tabelas())
        tabelas << esquema::Texto(tabela.nome);
    Escrever(u"BEGIN"_s);
    Escrever(u"LOCK TABLE %1 IN ACCESS EXCLUSIVE MODE"_s.arg(tabelas.join(u", "_s)));
}

void Sistema::Largar_O_Ficheiro()
{
    geral.de.Fechar_Ligacao();
    ligacao_.Close();
}

void Sistema::Destrancar() { Escrever(u"ROLLBACK"_s); }

QString Sistema::Texto(int id)
{
    Recordset rs = Ler(u"SELECT %1 AS texto FROM TblIdiomas WHERE ID=%2"_s.arg(geral.IdiomaActual).arg(id));
    return rs.Fields("texto").text();
}

int Sistema::Novo_Utilizador(const QString &nome, const QString &senha, const QString &direitos,
                             bool pedir_senha)
{
    const auto d = [&](int i) { return QString(direitos[i]); };
    geral.de.Executar("cmdAdicionarUser",
                      {nome, Codificar_Pass(senha), pedir_senha, d(0), d(1), d(2), d(3), d(4)});
    return Ultimo_Id(u"TblUsers"_s);
}

void Sistema::Entrar(const QString &nome)
{
    Recordset &rs = geral.de.Abrir("cmdVerIDUtilizador", {nome});
    geral.SessaoActual = {nome,
                          rs.Fields("ID").text(),
                          rs.Fields("SystemTray").yes(),
                          rs.Fields("Adicionar").yes(),
                          rs.Fields("Editar").yes(),
                          rs.Fields("Eliminar").yes(),
                          rs.Fields("Grupos").yes(),
                          rs.Fields("Utilizadores").yes()};
    rs.Close();
}

int Sistema::Novo_Contacto(const QMap<QString, Value> &colunas)
{
    const auto c = [&](const QString &nome) { return colunas.value(nome, Value(QString(u""_s))); };
    geral.de.Executar("cmdAdicionarNome",
                      {c(u"Nome"_s), c(u"Telefone1"_s), c(u"Telefone2"_s), c(u"Fax"_s), c(u"Telemovel1"_s),
                       c(u"Telemovel2"_s), c(u"Telemovel3"_s), c(u"Dia"_s), c(u"Mes"_s), c(u"Ano"_s),
                       c(u"Email1"_s), c(u"Email2"_s), c(u"Website"_s), c(u"Morada"_s), c(u"Obs"_s),
                       c(u"Fotografia"_s), colunas.value(u"Grupo"_s, Value(6))});
    return Ultimo_Id(u"TblLista"_s);
}

int Sistema::Novo_Grupo(const QString &nome, int IdUtilizador)
{
    geral.de.Executar("cmdInserirGrupo", {nome, IdUtilizador});
    return Ultimo_Id(u"TblGrupos"_s);
}

int Sistema::Ultimo_Id(const QString &tabela)
{
    return Ler(u"SELECT max(ID) AS id FROM "_s + tabela).Fields("id").number();
}
