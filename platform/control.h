#pragma once

#include <memory>
#include <string>

namespace platform {

class Form;
struct toolkit_peer;

/// A control of a form. Its widget lives from the form's load to its unload; touching the control
/// of a form that isn't loaded loads the form. Names are unique within a form: screen readers and
/// tests find the control by it.
class Control {
 public:
  Control(Form& form, std::string name);
  Control(const Control&) = delete;
  Control& operator=(const Control&) = delete;
  virtual ~Control();

  [[nodiscard]] const std::string& name() const { return name_; }
  void set_enabled(bool enabled);
  void set_focus();

  /// What a screen reader says of the control, where its caption alone doesn't tell.
  void set_accessible_name(const std::string& text);

  /// The toolkit's side of the control; opaque outside platform/ and controls/.
  [[nodiscard]] toolkit_peer& peer();

 protected:
  [[nodiscard]] Form& form() const { return form_; }

 private:
  friend class Form;

  [[nodiscard]] virtual std::unique_ptr<toolkit_peer> make() = 0;
  /// Once all widgets of the form are made: the place for what ties two controls together.
  virtual void tie() {}

  Form& form_;
  std::string name_;
  std::unique_ptr<toolkit_peer> peer_;
};

}  // namespace platform
