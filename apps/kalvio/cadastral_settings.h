// Values of the cadastral data, as the command line gives them.
#pragma once

#include <string>
#include <vector>

#include "model/cadastre.h"

class CadastralSettings {
 public:
  /// `words`: each KEY=VALUE with a key of the job's JSON document. Throws Failure (bad usage) for
  /// a key that there is not, or a value that it cannot hold.
  explicit CadastralSettings(const std::vector<std::string>& words);

  bool IsEmpty() const { return words_.empty(); }
  /// What is set takes the place of what was there; a list that is given in several words is the
  /// list of all of them.
  void Apply(cadastre::Survey& survey) const;

 private:
  std::vector<std::string> words_;
};
