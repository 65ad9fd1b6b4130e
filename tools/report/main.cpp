#include "Report.h"

#include <iostream>

int main(int argc, char *argv[])
{
    std::ios::sync_with_stdio(false);
    return zrt::ReportMain(argc, argv, std::cout, std::cerr);
}
