#include "app/CommandWords.h"

#include <filesystem>
#include <string_view>

namespace pintalux {

namespace {

constexpr const char* kVersion = "Pintalux 64 " PINTALUX_VERSION "\n";

constexpr const char* kHelp =
    "Utilização: pintalux64 [imagem]\n"
    "\n"
    "Desenha, retoca e converte imagens. A linha de comandos inteira é um só caminho: um caminho com\n"
    "espaços não precisa de aspas. Se o programa já estiver aberto, a imagem abre-se nele.\n"
    "\n"
    "  --help     mostra esta ajuda e termina\n"
    "  --version  mostra a versão e termina\n"
    "\n"
    "Mais em: man pintalux64\n";

} // namespace

std::optional<std::string> AnswerInTerminal(int argc, const char* const* argv) {
    if (argc != 2) return {};
    const std::string_view word = argv[1];
    const char* answer = word == "--help" ? kHelp : word == "--version" ? kVersion : nullptr;
    std::error_code unknown;
    if (answer == nullptr || std::filesystem::exists(word, unknown)) return {};
    return answer;
}

std::string LoneFile(int argc, const char* const* argv) {
    if (argc != 2 || argv[1][0] == '-') return {};
    return argv[1];
}

} // namespace pintalux
