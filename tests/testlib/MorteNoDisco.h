// Kills this process at a chosen change that it makes to a file: a write, which is cut in its middle, a
// flush, a renaming or a removal. A test program includes it in one of its files, since it stands in the
// place of the library's own calls.
#pragma once

#include <csignal>
#include <cstdio>
#include <dlfcn.h>
#include <string>
#include <sys/stat.h>
#include <sys/types.h>
#include <unistd.h>

namespace morte_no_disco
{
// False on a system whose calls cannot be stood in for: the test is skipped then.
constexpr bool Possivel() { return true; }

inline bool armada = false;
inline int fatal = 0;        // the change that kills, from 1; 0: none does
inline std::string mudancas; // a letter each: what has been done so far

// From here on changes count.
inline void Armar(int qual)
{
    fatal = qual;
    armada = true;
}

inline bool Conta(char letra)
{
    if (!armada) return false;
    mudancas += letra;
    return static_cast<int>(mudancas.size()) == fatal;
}

inline bool Ficheiro(int numero)
{
    struct stat estado {
    };
    return ::fstat(numero, &estado) == 0 && S_ISREG(estado.st_mode);
}

[[noreturn]] inline void Morrer()
{
    ::kill(::getpid(), SIGKILL);
    ::pause();
    ::_exit(1);
}

template<class Chamada> Chamada *Verdadeira(const char *nome)
{
    return reinterpret_cast<Chamada *>(::dlsym(RTLD_NEXT, nome));
}

inline ssize_t Escrever_Em(const char *nome, int numero, const void *bytes, size_t quantos, off_t onde)
{
    static auto *const verdadeira = Verdadeira<ssize_t(int, const void *, size_t, off_t)>(nome);
    if (Ficheiro(numero) && Conta('w')) {
        verdadeira(numero, bytes, quantos / 2, onde);
        Morrer();
    }
    return verdadeira(numero, bytes, quantos, onde);
}
} // namespace morte_no_disco

extern "C" {
ssize_t write(int numero, const void *bytes, size_t quantos)
{
    static auto *const verdadeira = morte_no_disco::Verdadeira<ssize_t(int, const void *, size_t)>("write");
    if (morte_no_disco::armada && morte_no_disco::Ficheiro(numero) && morte_no_disco::Conta('w')) {
        verdadeira(numero, bytes, quantos / 2);
        morte_no_disco::Morrer();
    }
    return verdadeira(numero, bytes, quantos);
}

ssize_t pwrite(int numero, const void *bytes, size_t quantos, off_t onde)
{
    return morte_no_disco::Escrever_Em("pwrite", numero, bytes, quantos, onde);
}

ssize_t pwrite64(int numero, const void *bytes, size_t quantos, off64_t onde)
{
    return morte_no_disco::Escrever_Em("pwrite", numero, bytes, quantos, onde);
}

int fsync(int numero)
{
    static auto *const verdadeira = morte_no_disco::Verdadeira<int(int)>("fsync");
    if (morte_no_disco::Conta('s')) morte_no_disco::Morrer();
    return verdadeira(numero);
}

int fdatasync(int numero)
{
    static auto *const verdadeira = morte_no_disco::Verdadeira<int(int)>("fdatasync");
    if (morte_no_disco::Conta('s')) morte_no_disco::Morrer();
    return verdadeira(numero);
}

int ftruncate(int numero, off_t tamanho) noexcept
{
    static auto *const verdadeira = morte_no_disco::Verdadeira<int(int, off_t)>("ftruncate");
    if (morte_no_disco::Conta('t')) morte_no_disco::Morrer();
    return verdadeira(numero, tamanho);
}

int ftruncate64(int numero, off64_t tamanho) noexcept { return ftruncate(numero, tamanho); }

int rename(const char *velho, const char *novo) noexcept
{
    static auto *const verdadeira = morte_no_disco::Verdadeira<int(const char *, const char *)>("rename");
    if (morte_no_disco::Conta('r')) morte_no_disco::Morrer();
    return verdadeira(velho, novo);
}

int renameat2(int velha, const char *velho, int nova, const char *novo, unsigned como) noexcept
{
    static auto *const verdadeira =
        morte_no_disco::Verdadeira<int(int, const char *, int, const char *, unsigned)>("renameat2");
    if (morte_no_disco::Conta('r')) morte_no_disco::Morrer();
    return verdadeira(velha, velho, nova, novo, como);
}

int linkat(int velha, const char *velho, int nova, const char *novo, int como) noexcept
{
    static auto *const verdadeira =
        morte_no_disco::Verdadeira<int(int, const char *, int, const char *, int)>("linkat");
    if (morte_no_disco::Conta('r')) morte_no_disco::Morrer();
    return verdadeira(velha, velho, nova, novo, como);
}

int unlink(const char *ficheiro) noexcept
{
    static auto *const verdadeira = morte_no_disco::Verdadeira<int(const char *)>("unlink");
    if (morte_no_disco::Conta('u')) morte_no_disco::Morrer();
    return verdadeira(ficheiro);
}
}
