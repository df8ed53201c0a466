#include "interchange/DE2.h"

#include "jet/JetFile.h"
#include "platform/Failure.h"
#include "store/UntouchedSource.h"

#include <QFile>
#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace
{
// In the order of the IDs, in which the rows of an older database need not stand.
constexpr std::array<const char16_t *, DE2::Comandos> sql{
    u"SELECT TblLista.* FROM TblLista ORDER BY ID", u"SELECT COUNT(ID) AS CountRegistos FROM TblLista",
    u"SELECT * FROM TblGrupos WHERE ID=?",          u"SELECT * FROM TblMemos ORDER BY ID",
    u"SELECT * FROM TblUsers WHERE ID=?",           u"SELECT COUNT(ID) AS CountMemos FROM TblMemos",
    u"SELECT * FROM TblTarefas ORDER BY ID",        u"SELECT COUNT(ID) AS CountTarefas FROM TblTarefas",
};

constexpr std::array tabelas_lidas{"TblLista", "TblGrupos", "TblUsers", "TblMemos", "TblTarefas"};
constexpr auto fotografias = "TblFotografias"_L1;
constexpr auto cartoes = "TblCartoes"_L1;

constexpr qint64 pagina = 4096; // bytes, in both kinds
constexpr qint64 os_de_sempre = 256 * pagina;

enum class Especie { Propria, Antiga, Nenhuma };

Especie Reconhecer(const QString &caminho)
{
    if (!QFileInfo(caminho).isFile()) return Especie::Nenhuma; // a pipe would be waited for
    QFile ficheiro(caminho);
    if (!ficheiro.open(QIODevice::ReadOnly) || ficheiro.size() < pagina) return Especie::Nenhuma;
    const QByteArray inicio = ficheiro.read(32);
    if (Connection::beginsLikeOne(inicio)) return Especie::Propria;
    return inicio.mid(4, 15) == "Standard Jet DB" ? Especie::Antiga : Especie::Nenhuma;
}

// Values as they are handed on: always as text that no locale changes, but for whole numbers. The older kind
// has one type for dates and times; which of the two is meant, the column tells.
struct EmValor {
    bool hora;

    StoreValue operator()(std::monostate) const { return {}; }
    StoreValue operator()(bool sim) const { return sim ? u"True"_s : u"False"_s; }
    StoreValue operator()(qint64 numero) const { return numero; }
    StoreValue operator()(double numero) const
    {
        return QString::number(static_cast<float>(numero), 'g', QLocale::FloatingPointShortest);
    }
    StoreValue operator()(const QString &texto) const { return texto; }
    StoreValue operator()(const QDateTime &momento) const
    {
        return momento.toString(hora ? u"hh:mm:ss"_s : u"dd-MM-yyyy"_s);
    }
};

// A table of the older kind, copied into one of that name as it is read.
class CopiaDeTabela final : public JetFile::Sink
{
public:
    CopiaDeTabela(Connection &cn, QString nome) : cn_(cn), nome_(std::move(nome)) {}

    void columns(const QStringList &names) override
    {
        QStringList colunas;
        for (const QString &nome : names) {
            colunas << u'[' + nome + u']';
            horas_.push_back(nome.compare("Hora"_L1, Qt::CaseInsensitive) == 0);
        }
        cn_.execute(u"CREATE TABLE %1 (%2)"_s.arg(nome_, colunas.join(u", "_s)), {});
        inserir_ = u"INSERT INTO %1 VALUES (%2)"_s.arg(nome_, QStringList(colunas.size(), u"?"_s).join(u','));
    }

    void row(const std::vector<JetFile::Cell> &cells) override
    {
        std::vector<StoreValue> valores;
        valores.reserve(cells.size());
        for (std::size_t i = 0; i < cells.size(); ++i)
            valores.push_back(std::visit(EmValor{horas_[i]}, cells[i]));
        cn_.execute(inserir_, std::move(valores));
    }

private:
    Connection &cn_;
    QString nome_;
    QString inserir_;
    std::vector<bool> horas_; // which columns hold times of the day
};

// All of the table or nothing. Its rows are looked for by their IDs. Where there is no more room, the store
// has undone the table already.
void Copiar_Tabela(Connection &cn, const QString &nome, const JetFile &ficheiro)
{
    CopiaDeTabela copia(cn, nome);
    cn.execute(u"BEGIN"_s, {});
    const bool toda = skipFailure([&] {
        ficheiro.read(nome, copia);
        cn.execute(u"COMMIT"_s, {});
    });
    if (toda)
        skipFailure([&] { cn.execute(u"CREATE INDEX IDs_%1 ON %1 (ID)"_s.arg(nome), {}); });
    else
        skipFailure([&] { cn.execute(u"ROLLBACK"_s, {}); });
}
} // namespace

bool DE2::Grande_Demais(const QString &caminho) { return UntouchedSource::bytes(caminho) > maior_ficheiro; }

DE2::DE2(const QString &caminho)
{
    if (Grande_Demais(caminho))
        throw Failure(Failure::StoreError, caminho, u"The file is too large: %1"_s.arg(caminho));
    const Especie especie = Reconhecer(caminho);
    if (especie == Especie::Nenhuma)
        throw Failure(Failure::StoreError, caminho, u"The file is no database: %1"_s.arg(caminho));
    if (especie == Especie::Propria)
        Abrir_Proprio(caminho);
    else
        Carregar_Antigo(caminho);
}

// A merge skips what fails, so a damaged file must be known before: it would be merged in part without a
// word.
void DE2::Abrir_Proprio(const QString &caminho)
{
    cn_.setConnectionString(u"Provider=Microsoft.Jet.OLEDB.4.0;Data Source= '"_s + caminho + u"'"_s +
                            u";Persist Security Info=False"_s);
    cn_.OpenCopyInMemory();
    if (Tem_Vistas()) return cn_.Close();
    tem_fotografias_ = !cn_.columns(fotografias).isEmpty();
    tem_cartoes_ = !cn_.columns(cartoes).isEmpty();
}

// What a view or a foreign kind of table gives may be anything, and as much of it as it likes.
bool DE2::Tem_Vistas()
{
    QStringList nomes{fotografias, cartoes};
    for (const char *nome : tabelas_lidas)
        nomes << QLatin1StringView(nome);
    return cn_.anyForeign(nomes);
}

// A table that can't be read is not there; the others are.
void DE2::Carregar_Antigo(const QString &caminho)
{
    const JetFile ficheiro(caminho);
    // A sound file's texts take at most two bytes here for each of theirs; a harmed one may give the same
    // bytes over and over.
    cn_.OpenInMemory(JetFile::bytesOfAByte * QFileInfo(caminho).size() + os_de_sempre);
    for (const char *nome : tabelas_lidas)
        Copiar_Tabela(cn_, QLatin1StringView(nome), ficheiro);
}

Recordset &DE2::Abrir(Comando comando) { return Correr(comando, {}); }

Recordset &DE2::Abrir(Comando comando, const QString &ID)
{
    return Correr(comando, {Value(ID).convertedTo(ColumnType::Long)});
}

Recordset &DE2::Correr(Comando comando, const std::vector<StoreValue> &valores)
{
    Recordset &rs = conjuntos_[comando];
    rs.Close();
    rs = cn_.query(QString::fromUtf16(sql[comando]), valores);
    return rs;
}

void DE2::Percorrer(Comando comando, const std::function<void(const Recordset &)> &linha)
{
    conjuntos_[comando].Close();
    cn_.each(QString::fromUtf16(sql[comando]), {}, linha);
}

QByteArray DE2::Fotografia(const QString &nome)
{
    if (!tem_fotografias_) return {};
    const Recordset rs = cn_.query(u"SELECT Imagem FROM TblFotografias WHERE Nome=?"_s, {nome});
    return rs.Eof() ? QByteArray() : rs.Fields("Imagem").bytes();
}

CartaoGuardado DE2::Cartao(const QString &ID)
{
    if (!tem_cartoes_) return {};
    const Recordset rs = cn_.query(u"SELECT UID, cartao FROM TblCartoes WHERE IDContacto=?"_s,
                                   {Value(ID).convertedTo(ColumnType::Long)});
    if (rs.Eof()) return {};
    return {ID, rs.Fields("UID").textOrEmpty(), rs.Fields("cartao").bytes()};
}

void DE2::Fechar_cn() { cn_.Close(); }
