// Makes a dictionary of JSON, for fuzz_dictionary_files to begin with: make_dictionary JSON DICTIONARY
#include "apps/common/Dictionaries.h"

#include <exception>
#include <fstream>
#include <iostream>

int main(int count, char** arguments) {
  if (count != 3) return 2;
  try {
    std::ifstream json(arguments[1], std::ios::binary);
    formwizard::apps::common::ImportDictionary(json, arguments[1], arguments[2], true);
    return 0;
  } catch (const std::exception& error) {
    std::cerr << error.what() << '\n';
    return 3;
  }
}
