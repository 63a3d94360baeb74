// performance_page TEXT FIGURES.json …   prints the text with the figures in their places
#include <exception>
#include <fstream>
#include <iostream>
#include <iterator>
#include <string>
#include <vector>

#include "performance_page/figures.h"
#include "performance_page/page.h"

int main(int count, char** arguments) {
  if (count < 3) {
    std::cerr << "performance_page TEXT FIGURES.json …\n";
    return 2;
  }
  try {
    std::ifstream file(arguments[1], std::ios::binary);
    const std::string text{std::istreambuf_iterator<char>(file), {}};
    std::vector<std::string> missing;
    std::cout << salerpt::bench::FillPage(
        text, salerpt::bench::ReadFigures({arguments + 2, arguments + count}), missing);
    for (const std::string& place : missing) std::cerr << "not measured: " << place << '\n';
    return 0;
  } catch (const std::exception& failure) {
    std::cerr << "performance_page: " << failure.what() << '\n';
    return 2;
  }
}
