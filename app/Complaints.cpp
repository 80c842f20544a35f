#include "app/Complaints.h"

#include <iostream>

#include "app/Style.h"

void ComplainAbout(const std::string& file, const std::string& reason) {
    Complain(file + ": " + reason);
}

void Complain(const std::string& reason) {
    std::cout.flush();
    std::cerr << StyledForErrors(Style::Failure, "kelvarin-import:") << " " << reason << std::endl;
}
