#include "surface/system/FileLayer.h"

#include "system/Sandbox.h"

#include <cerrno>

namespace pintalux {
namespace {

struct ErrnoCase {
    int errnoValue;
    int number;
    const char* name;
};

class FileErrors : public testing::TestWithParam<ErrnoCase> {};

TEST_P(FileErrors, HaveTheirNumbers) {
    EXPECT_EQ(ErrorOf([] { RaiseFileError(GetParam().errnoValue, "/x"); }), GetParam().number);
}

INSTANTIATE_TEST_SUITE_P(
    All, FileErrors,
    testing::Values(ErrnoCase{ENOENT, 53, "Missing"}, ErrnoCase{EIO, 57, "BadDisk"},
                    ErrnoCase{ENOSPC, 61, "FullDisk"}, ErrnoCase{EDQUOT, 61, "FullQuota"},
                    ErrnoCase{ENXIO, 68, "NoDevice"}, ErrnoCase{ENODEV, 68, "NoSuchDevice"},
                    ErrnoCase{ESTALE, 68, "StaleHandle"}, ErrnoCase{ENOTCONN, 68, "NotConnected"},
                    ErrnoCase{EHOSTDOWN, 68, "ServerDown"}, ErrnoCase{ETIMEDOUT, 68, "ServerSilent"},
                    ErrnoCase{EACCES, 70, "NoRight"}, ErrnoCase{EPERM, 70, "NotOwner"},
                    ErrnoCase{EROFS, 70, "ReadOnlyDisk"}, ErrnoCase{ENOMEM, 7, "NoMemory"},
                    ErrnoCase{ENOTDIR, 76, "NoFolder"}, ErrnoCase{EISDIR, 75, "Folder"},
                    ErrnoCase{EMFILE, 75, "TooManyOpen"}),
    [](const auto& row) { return row.param.name; });

TEST(FileLayer, ErrorTextNamesPathAndReason) {
    try {
        RaiseFileError(ENOSPC, "/disco/imagem.bmp");
    } catch (const RuntimeError& error) {
        EXPECT_EQ(error.Text(), "Disco cheio: /disco/imagem.bmp (não há espaço no disco)");
        return;
    }
    FAIL() << "no error";
}

TEST(FileLayer, EveryReasonHasItsWords) {
    const auto textOf = [](int errnoValue) -> std::string {
        try {
            RaiseFileError(errnoValue, "/x");
        } catch (const RuntimeError& error) {
            return error.Text();
        }
    };
    const std::string missing = "Ficheiro não encontrado: /x (";
    const std::string noPath = "Caminho não encontrado: /x (";
    const std::string device = "Erro de leitura ou escrita no dispositivo: /x (";
    const std::string full = "Disco cheio: /x (";
    const std::string refused = "Permissão recusada: /x (";
    const std::string away = "Dispositivo não disponível: /x (";
    const std::string access = "Erro de acesso ao caminho ou ao ficheiro: /x (";
    EXPECT_EQ(textOf(ENOENT), missing + "não existe)");
    EXPECT_EQ(textOf(ENOTDIR), noPath + "uma parte do caminho não é uma pasta)");
    EXPECT_EQ(textOf(ENAMETOOLONG), noPath + "o nome é demasiado longo)");
    EXPECT_EQ(textOf(EIO), device + "o disco não respondeu bem)");
    EXPECT_EQ(textOf(ENOSPC), full + "não há espaço no disco)");
    EXPECT_EQ(textOf(EDQUOT), full + "a quota de disco está esgotada)");
    EXPECT_EQ(textOf(EACCES), refused + "não tem permissão)");
    EXPECT_EQ(textOf(EPERM), refused + "não tem permissão)");
    EXPECT_EQ(textOf(EROFS), refused + "o disco só permite leitura)");
    for (const int gone : {ENXIO, ENODEV})
        EXPECT_EQ(textOf(gone), away + "o dispositivo não está disponível)") << gone;
    for (const int silent : {ESTALE, ENOTCONN, EHOSTDOWN, ETIMEDOUT})
        EXPECT_EQ(textOf(silent), away + "o servidor não responde)") << silent;
    EXPECT_EQ(textOf(ENOMEM), "Memória insuficiente: /x (falta memória)");
    EXPECT_EQ(textOf(EISDIR), access + "é uma pasta)");
    EXPECT_EQ(textOf(EEXIST), access + "já existe)");
    EXPECT_EQ(textOf(EINVAL), access + "não é um ficheiro comum)");
    EXPECT_EQ(textOf(EFBIG), access + "o ficheiro é demasiado grande)");
    for (const int open : {EMFILE, ENFILE})
        EXPECT_EQ(textOf(open), access + "há demasiados ficheiros abertos)") << open;
    EXPECT_EQ(textOf(ELOOP), access + "há demasiadas ligações simbólicas)");
    EXPECT_EQ(textOf(EBUSY), access + "erro 16 do sistema)");
}

TEST(FileLayer, WhatWasWrittenIsRead) {
    const Sandbox box;
    WriteWholeFile(box / "a", "um\ndois");
    EXPECT_EQ(ReadWholeFile(box / "a", 100), "um\ndois");
    EXPECT_EQ(FileLength(box / "a"), 7U);
}

TEST(FileLayer, WritingEmptiesTheOldFile) {
    const Sandbox box;
    WriteWholeFile(box / "a", "long text");
    WriteWholeFile(box / "a", "x");
    EXPECT_EQ(BytesOf(box / "a"), "x");
}

TEST(FileLayer, PrivateFileIsForTheUserAlone) {
    const Sandbox box;
    WriteWholeFile(box / "a", "x", true);
    EXPECT_EQ(ModeOf(box / "a"), 0600U);
}

TEST(FileLayer, PrivateFileRefusesASymbolicLink) {
    const Sandbox box;
    PutBytes(box / "target", "kept");
    std::filesystem::create_symlink("target", box / "link");
    EXPECT_EQ(ErrorOf([&] { WriteWholeFile(box / "link", "x", true); }), 75);
    EXPECT_EQ(BytesOf(box / "target"), "kept");
}

TEST(FileLayer, FileAboveTheLimitIsNotRead) {
    const Sandbox box;
    PutBytes(box / "a", "12345");
    EXPECT_EQ(ReadWholeFile(box / "a", 5), "12345");
    EXPECT_EQ(ErrorOf([&] { ReadWholeFile(box / "a", 4); }), 75);
}

TEST(FileLayer, ReadGivesWhatIsThereAtTheEnd) {
    const Sandbox box;
    PutBytes(box / "a", "12345");
    File file = File::OpenForReading(box / "a");
    file.Seek(3);
    std::byte bytes[4] = {};
    EXPECT_EQ(file.Read(bytes), 2U);
    EXPECT_EQ(bytes[1], std::byte{'5'});
}

TEST(FileLayer, FoldersAndPipesAreNotRead) {
    const Sandbox box;
    ASSERT_EQ(::mkfifo((box / "pipe").c_str(), 0600), 0);
    EXPECT_EQ(ErrorOf([&] { File::OpenForReading(box.Folder()); }), 75);
    EXPECT_EQ(ErrorOf([&] { File::OpenForReading(box / "pipe"); }), 75);
}

TEST(FileLayer, CreateNewRefusesAFileThatExists) {
    const Sandbox box;
    File::CreateNew(box / "a").Close();
    EXPECT_EQ(ModeOf(box / "a"), 0600U);
    EXPECT_EQ(ErrorOf([&] { File::CreateNew(box / "a"); }), 75);
    EXPECT_FALSE(File::TryCreateNew(box / "a").has_value());
}

TEST(FileLayer, FullDeviceIsDiskFull) {
    if (::access("/dev/full", W_OK) != 0) GTEST_SKIP() << "no /dev/full here";
    EXPECT_EQ(ErrorOf([] { WriteWholeFile("/dev/full", "x"); }), 61);
}

TEST(FileLayer, InterruptedOperationsAreRepeated) {
    const Sandbox box;
    const auto roundTrip = [&] {
        WriteWholeFile(box / "a", "text");
        ASSERT_EQ(ReadWholeFile(box / "a", 10), "text");
    };
    FailFileOperation(0, 0);
    roundTrip();
    const int count = FileOperationCount();
    for (int n = 1; n <= count; ++n) {
        if (n == 3) continue; // the close: that one may fail
        FailFileOperation(n, EINTR);
        roundTrip();
    }
    FailFileOperation(0, 0);
}

TEST(FileLayer, CheckedCloseReportsAFailureAndClosesAllTheSame) {
    const Sandbox box;
    File file = File::CreateNew(box / "a");
    FailFileOperation(1, EIO);
    EXPECT_EQ(ErrorOf([&] { file.Close(); }), 57);
    EXPECT_EQ(ErrorOf([&] { file.Close(); }), 0);
}

TEST(FileLayer, DateReadableTellsMissingFromForbidden) {
    const Sandbox box;
    PutBytes(box / "a", "x");
    EXPECT_TRUE(FileDateReadable(box / "a"));
    EXPECT_FALSE(FileDateReadable(box / "b"));
    EXPECT_FALSE(FileDateReadable(box / "a/below"));
    EXPECT_FALSE(FileDateReadable(""));
    FailFileOperation(1, ENOMEM);
    EXPECT_EQ(ErrorOf([&] { FileDateReadable(box / "a"); }), 7);
}

TEST(FileLayer, APathThatNobodyGetsThroughToHasNoDate) {
    const Sandbox box;
    PutBytes(box / "a", "x");
    for (const int reason :
         {EACCES, ELOOP, ESTALE, EIO, ENOTCONN, EHOSTDOWN, ETIMEDOUT, ENAMETOOLONG, ENODEV}) {
        FailFileOperation(1, reason);
        EXPECT_FALSE(FileDateReadable(box / "a")) << reason;
    }
    EXPECT_TRUE(FileDateReadable(box / "a"));
}

TEST(FileLayer, AFileInAClosedFolderHasNoDate) {
    const Sandbox box;
    std::filesystem::create_directory(box / "closed");
    PutBytes(box / "closed/a", "x");
    ::chmod((box / "closed").c_str(), 0);
    ::chmod(box.Folder().c_str(), 0755);
    {
        const OrdinaryUser user;
        EXPECT_FALSE(FileDateReadable(box / "closed/a"));
    }
    ::chmod((box / "closed").c_str(), 0700);
}

TEST(FileLayer, LengthOfNoFileIsEmpty) {
    const Sandbox box;
    EXPECT_FALSE(FileLength(box / "a").has_value());
    EXPECT_FALSE(FileLength(box.Folder()).has_value());
}

TEST(FileLayer, DeletingAMissingFileIsError53) {
    const Sandbox box;
    PutBytes(box / "a", "x");
    DeleteFile(box / "a");
    EXPECT_TRUE(box.Names().empty());
    EXPECT_EQ(ErrorOf([&] { DeleteFile(box / "a"); }), 53);
}

TEST(FileLayer, FoldersAreMadeForTheUserAlone) {
    const Sandbox box;
    MakeFolders(box / "one/two");
    MakeFolders(box / "one/two");
    MakeFolders(box / "one/three/.");
    EXPECT_TRUE(std::filesystem::is_directory(box / "one/three"));
    EXPECT_EQ(ModeOf(box / "one"), 0700U);
    EXPECT_EQ(ModeOf(box / "one/two"), 0700U);
    PutBytes(box / "file", "x");
    EXPECT_EQ(ErrorOf([&] { MakeFolders(box / "file"); }), 75);
}

} // namespace
} // namespace pintalux
