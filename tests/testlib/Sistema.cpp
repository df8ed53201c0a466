#include "testlib/Sistema.h"

#include "data/Codificar_Pass.h"
#include "data/Sementes.h"
#include "testlib/Teste.h"

#include <QDir>
#include <QFile>

using namespace Qt::StringLiterals;

namespace
{
void Copiar_Enviados(const QString &destino)
{
    const QDir enviados(qEnvironmentVariable("MORVEX_ENVIADOS"));
    for (const QString &nome :
         enviados.entryList({u"*.jpg"_s, u"*.mdb"_s, u"*.ini"_s, u"*.txt"_s, u"*.wav"_s}))
        QFile::copy(enviados.filePath(nome), destino + u'/' + nome);
}
} // namespace

Sistema::Sistema(Estado estado, const QString &idioma) : geral(pasta_.path())
{
    teste::caixas_actuais = &caixas;
    Copiar_Enviados(Pasta());
    ligacao_.setConnectionString(u"Data Source='%1'"_s.arg(Base()));
    if (estado == Estado::Semeado) {
        Sementes sementes = sementes::PT();
        sementes.Idioma = idioma;
        sementes::Semear(geral.de, sementes);
        geral.IdiomaActual = idioma;
        for (bool *direito :
             {&geral.SessaoActual.Adicionar, &geral.SessaoActual.Editar, &geral.SessaoActual.Eliminar,
              &geral.SessaoActual.Grupos, &geral.SessaoActual.Utilizadores})
            *direito = true; // as the start gives them where there are no users
    }
    if (estado != Estado::Vazio) geral.ini.Escrever_Ini(u"basedados"_s, u"caminhobd"_s, Base());
    if (estado == Estado::Sem_Base) QFile::remove(Base());
}

Sistema::~Sistema() { teste::caixas_actuais = nullptr; }

Recordset Sistema::Ler(const QString &sql)
{
    if (!ligacao_.isOpen()) ligacao_.Open();
    return ligacao_.query(sql, {});
}

void Sistema::Escrever(const QString &sql)
{
    if (!ligacao_.isOpen()) ligacao_.Open();
    ligacao_.execute(sql, {});
}

QStringList Sistema::Linhas(const QString &sql)
{
    // One text a row is built by the database: names of columns don't matter then.
    Recordset rs = Ler(sql);
    QStringList linhas;
    for (; !rs.Eof(); rs.MoveNext())
        linhas << rs.Row().join(u'|');
    return linhas;
}

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
