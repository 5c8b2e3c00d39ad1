#pragma once

#include <vector>

class EditBox;

/// Boxes that keep their texts for the current user, each under its object's name: read when this object is made, written when
/// it goes, whether or not the form was saved: meant. What cannot be written leaves a line in the log.
class KeptFields {
 public:
  explicit KeptFields(std::vector<EditBox*> boxes);
  ~KeptFields();
  KeptFields(const KeptFields&) = delete;
  KeptFields& operator=(const KeptFields&) = delete;

 private:
  std::vector<EditBox*> boxes_;
};
