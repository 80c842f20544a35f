#include "host/AnalysisObserver.h"

namespace {

IAnalysisObserver* s_Observer = nullptr;

}  // namespace

void SetAnalysisObserver(IAnalysisObserver* observer) {
    s_Observer = observer;
}

IAnalysisObserver* GetAnalysisObserver() {
    return s_Observer;
}
