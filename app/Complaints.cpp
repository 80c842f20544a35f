#include "app/Complaints.h"

#include <iostream>

void ComplainAbout(const std::string& file, const std::string& reason) {
    Complain(file + ": " + reason);
}

void Complain(const std::string& reason) {
    std::cout.flush();
    std::cerr << "kelvarin-import: " << reason << std::endl;
}
