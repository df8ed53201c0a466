// Nobody here can be made one who owns nothing.
#pragma once

class SemPrivilegios
{
public:
    SemPrivilegios() {} // NOLINT(modernize-use-equals-default): one that is constant wants a constructor
    // A file has those of its folder.
    static bool Ha_Direitos_Por_Ficheiro() { return false; }
    bool Possivel() const { return false; }
};
