# The tests that only Linux has, each with its reason. Where the program is built for another system they are not built, and
# CTest names them as left out.
set(morvex_so_linux
    # What they test is Linux's own: the session's bus, the X server, entries of desktops, signals, terminals, players in PATH.
    platform/test_ChooseDesktop
    platform/test_ColourScheme
    platform/test_DesktopRegistry
    platform/test_DesktopSessionEnd
    platform/test_DesktopShell
    platform/test_DesktopSound
    platform/test_DesktopTray
    platform/test_MailProgram
    platform/test_PurpleMessenger
    platform/test_SecretService
    platform/test_SomGravado
    platform/test_Terminal
    platform/test_TrayHosts
    session/test_autorun
    # They print on a spooler, or call an office suite or a reader of PDF, of this machine.
    printing/test_Paginas
    report/test_ReportExport
    report/test_ReportPrinting
    interchange/test_exportacao
    # They start servers of this machine.
    carddav/test_servidores_carddav
    mail/test_servidor_pop3
    sincronizacao/test_TresClientes
    sincronizacao/test_servidor_de_livros
    # Database servers, which that edition of the program does not reach.
    contacts/test_FotografiaNoServidor
    interchange/test_ImportacaoCortada
    servidor/test_Comparacao
    servidor/test_EsquemaNoServidor
    sincronizacao/test_SincronizacaoNoServidor
    store/test_Libpq
    store/test_PostgresAddress
    store/test_PostgresCopy
    store/test_PostgresDialect
    store/test_PostgresFailure
    store/test_PostgresFaults
    store/test_PostgresLedger
    store/test_PostgresLink
    store/test_PostgresNotices
    store/test_PostgresOpening
    store/test_PostgresSilence
    store/test_PostgresStore
    store/test_PostgresWrites
    store/test_ServerSession
    # The build's own programs run on the machine that builds.
    data/test_criar_bd
    ferramentas/test_desenhos
    ferramentas/test_Manual
    # It asks the allocator of Unix's library.
    platform/test_FreeMemory)
