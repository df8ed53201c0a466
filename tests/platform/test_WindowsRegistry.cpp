// The registry's values by key and name, kept in files where there is no registry.
#include "platform/WindowsRegistry.h"
#include "testlib/SemPrivilegios.h"
#include "testlib/Teste.h"

#include <QTemporaryDir>

using namespace Qt::StringLiterals;

class TestWindowsRegistry : public QObject
{
    Q_OBJECT

    static constexpr auto user = Registry::Root::CurrentUser;
    static constexpr auto machine = Registry::Root::LocalMachine;
    const QString run_ = u"Software\\Microsoft\\Windows\\CurrentVersion\\Run"_s;
    std::unique_ptr<QTemporaryDir> folder_;

    WindowsRegistry Registo() const
    {
        return WindowsRegistry(
            {folder_->filePath(u"user"_s), folder_->filePath(u"machine"_s), QSettings::IniFormat});
    }

private Q_SLOTS:
    void init() { folder_ = std::make_unique<QTemporaryDir>(); }

    void um_valor_escrito_le_se_e_apaga_se()
    {
        const QString programa = uR"(C:\Program Files\Morvex\morvex.exe)"_s;
        QVERIFY(Registo().writeString(user, run_, u"Morvex 1.0"_s, programa));
        QCOMPARE(Registo().readString(user, run_, u"Morvex 1.0"_s), programa);
        QVERIFY(Registo().deleteValue(user, run_, u"Morvex 1.0"_s));
        QCOMPARE(Registo().readString(user, run_, u"Morvex 1.0"_s), QString());
    }

    void escrever_outra_vez_substitui_so_esse_valor()
    {
        QVERIFY(Registo().writeString(user, run_, u"Morvex 1.0"_s, u"antigo"_s));
        QVERIFY(Registo().writeString(user, run_, u"Outro"_s, u"outro"_s));
        QVERIFY(Registo().writeString(user, run_, u"Morvex 1.0"_s, u"novo"_s));
        QCOMPARE(Registo().readString(user, run_, u"Morvex 1.0"_s), u"novo"_s);
        QCOMPARE(Registo().readString(user, run_, u"Outro"_s), u"outro"_s);
    }

    void o_mesmo_nome_noutra_chave_ou_raiz_e_outro_valor()
    {
        QVERIFY(Registo().writeString(user, run_, u"Morvex 1.0"_s, u"aqui"_s));
        QCOMPARE(Registo().readString(user, u"Software\\Outra"_s, u"Morvex 1.0"_s), QString());
        QCOMPARE(Registo().readString(machine, run_, u"Morvex 1.0"_s), QString());
    }

    void as_raizes_sao_as_do_sistema_e_o_valor_de_uma_chave_e_o_que_a_biblioteca_chama_assim()
    {
        const WindowsRegistry::Place lugar;
        QCOMPARE(lugar.currentUser, u"HKEY_CURRENT_USER"_s);
        QCOMPARE(lugar.localMachine, u"HKEY_LOCAL_MACHINE"_s);
        QVERIFY(Registo().writeString(user, u"Chave"_s, {}, u"valor"_s));
        const QSettings do_utilizador(folder_->filePath(u"user"_s) + u"\\Chave"_s, QSettings::IniFormat);
        QCOMPARE(do_utilizador.value("Default").toString(), u"valor"_s);
        QCOMPARE(Registo().readString(user, u"Chave"_s, {}), u"valor"_s);
    }

    void apagar_o_que_nao_ha_responde_que_nao()
    {
        QVERIFY(!Registo().deleteValue(user, run_, u"Morvex 1.0"_s));
    }

    void onde_nao_se_pode_escrever_responde_que_nao()
    {
        WindowsRegistry registry = Registo();
        const SemPrivilegios ninguem;
        if (!ninguem.Possivel()) QSKIP("nobody here is refused a folder");
        QVERIFY(!registry.writeString(user, run_, u"Morvex 1.0"_s, u"/opt/morvex"_s));
    }
};

MORVEX_TESTE(TestWindowsRegistry)
#include "test_WindowsRegistry.moc"
