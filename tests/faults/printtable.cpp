// Prints the table of faults and operations as Markdown.

#include "tests/faults/markdown.h"

#include <iostream>

int main()
{
    std::cout << faults::markdown().toStdString();
}
