#include "Run.h"

#include <iostream>

int main(int count, char** arguments) {
    return rasterplan_tool::run({arguments + (count > 0 ? 1 : 0), arguments + count}, {std::cout, std::cerr});
}
