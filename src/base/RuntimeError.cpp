#include "base/RuntimeError.h"

#include <stdexcept>
#include <utility>

namespace pintalux {

std::string ErrorText(int number) {
    switch (number) {
    case kInvalidArgument:
        return "Argumento ou chamada inválida";
    case kOverflow:
        return "Excesso de capacidade (overflow)";
    case kOutOfMemory:
        return "Memória insuficiente";
    case kSubscriptOutOfRange:
        return "Índice fora do intervalo";
    case kInterrupted:
        return "Interrompido pelo utilizador";
    case kInternalError:
        return "Erro interno";
    case kFileNotFound:
        return "Ficheiro não encontrado";
    case kDeviceError:
        return "Erro de leitura ou escrita no dispositivo";
    case kDiskFull:
        return "Disco cheio";
    case kDeviceUnavailable:
        return "Dispositivo não disponível";
    case kPermissionDenied:
        return "Permissão recusada";
    case kPathFileAccess:
        return "Erro de acesso ao caminho ou ao ficheiro";
    case kPathNotFound:
        return "Caminho não encontrado";
    case kObjectNotSet:
        return "Nenhum objecto activo";
    case kInvalidPropertyValue:
        return "Valor de propriedade inválido";
    case kInvalidPicture:
        return "Imagem inválida";
    default:
        return "Erro da aplicação";
    }
}

RuntimeError::RuntimeError(int number, std::string detail) : number_(number), text_(ErrorText(number)) {
    if (!detail.empty()) text_ += ": " + std::move(detail);
}

RuntimeError CurrentError() {
    try {
        throw;
    } catch (const RuntimeError& error) {
        return error;
    } catch (const std::bad_alloc&) {
        return RuntimeError(kOutOfMemory);
    } catch (const std::length_error&) {
        return RuntimeError(kOutOfMemory);
    } catch (const std::exception& error) {
        return RuntimeError(kInternalError, error.what());
    } catch (...) {
        return RuntimeError(kInternalError);
    }
}

} // namespace pintalux
