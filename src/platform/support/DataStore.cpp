#include "contract/DataStore.h"

std::uint32_t SizeOfKelvarinType(std::uint32_t type) {
    switch (type) {
        case KelvarinBool:
            return 1;
        case KelvarinDouble:
        case KelvarinInt64:
            return 8;
        case KelvarinChar16:
            return 2;
        default:
            return 0;
    }
}
