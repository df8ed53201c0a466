// While one lives, the process has the rights of a user who owns nothing: an administrator may write
// everywhere, and then a read-only file proves nothing. Does nothing for anybody else.
#pragma once

#include <unistd.h>

class SemPrivilegios
{
public:
    SemPrivilegios() : administrador_(::geteuid() == 0)
    {
        if (administrador_) possivel_ = ::setresuid(ninguem, ninguem, 0) == 0;
    }
    ~SemPrivilegios()
    {
        if (administrador_ && possivel_ && ::setresuid(0, 0, 0) != 0) ::_exit(1);
    }
    SemPrivilegios(const SemPrivilegios &) = delete;
    SemPrivilegios &operator=(const SemPrivilegios &) = delete;

    // Whether a file tells its owner's rights from those of others.
    static bool Ha_Direitos_Por_Ficheiro() { return true; }
    // False where the machine does not let go of the rights: the test is skipped then.
    bool Possivel() const { return possivel_; }

private:
    static constexpr uid_t ninguem = 65534;
    bool administrador_;
    bool possivel_ = true;
};
