// A disk of a few kilobytes in memory, mounted in a folder of its own while one lives. The mounts belong to
// this process alone: its main asks for that before anything else.
#pragma once

#include <cstdio>
#include <QString>
#include <QTemporaryDir>
#include <sched.h>
#include <string>
#include <sys/mount.h>
#include <unistd.h>

class DiscoPequeno
{
public:
    // Must come before the first thread. Where it fails, no disk can be mounted.
    static void Preparar()
    {
        const uid_t uid = ::getuid();
        const gid_t gid = ::getgid();
        if (::geteuid() == 0) {
            if (::unshare(CLONE_NEWNS) != 0) return;
        } else {
            if (::unshare(CLONE_NEWUSER | CLONE_NEWNS) != 0) return;
            Escrever("/proc/self/setgroups", "deny");
            Escrever("/proc/self/uid_map", "0 " + std::to_string(uid) + " 1");
            Escrever("/proc/self/gid_map", "0 " + std::to_string(gid) + " 1");
        }
        preparado = ::mount(nullptr, "/", nullptr, MS_REC | MS_PRIVATE, nullptr) == 0;
    }

    explicit DiscoPequeno(int quilobytes)
    {
        const std::string tamanho = "size=" + std::to_string(quilobytes) + "k";
        montado_ = preparado && ::mount("tmpfs", Onde().c_str(), "tmpfs", 0, tamanho.c_str()) == 0;
    }
    ~DiscoPequeno()
    {
        if (montado_) ::umount2(Onde().c_str(), MNT_DETACH);
    }
    DiscoPequeno(const DiscoPequeno &) = delete;
    DiscoPequeno &operator=(const DiscoPequeno &) = delete;

    // False where this machine lets nobody mount: the test is skipped then.
    bool Montado() const { return montado_; }
    bool Tornar_So_De_Leitura()
    {
        return ::mount(nullptr, Onde().c_str(), nullptr, MS_REMOUNT | MS_RDONLY, nullptr) == 0;
    }
    QString Pasta() const { return pasta_.path(); }
    QString Ficheiro(const QString &nome) const { return pasta_.filePath(nome); }

private:
    static void Escrever(const char *ficheiro, const std::string &texto)
    {
        std::FILE *aberto = std::fopen(ficheiro, "w");
        if (aberto == nullptr) return;
        std::fputs(texto.c_str(), aberto);
        std::fclose(aberto);
    }
    std::string Onde() const { return pasta_.path().toStdString(); }

    static inline bool preparado = false;
    QTemporaryDir pasta_;
    bool montado_ = false;
};
