// Light, dark, or as the system has it; remembered where the browser lets a file remember anything.

const rememberedAppearance = "norra-report-appearance";

function remembered() {
  try { return localStorage.getItem(rememberedAppearance); } catch { return null; }
}

function remember(appearance) {
  try { localStorage.setItem(rememberedAppearance, appearance); } catch { /* then it lasts as long as the page */ }
}

function wear(appearance) { document.documentElement.dataset.appearance = appearance; }

function setUpAppearance() {
  const choices = byId("appearance");
  const boxes = [...choices.querySelectorAll("input")];
  const worn = boxes.find(box => box.value === remembered()) ?? boxes[0];
  worn.checked = true;
  wear(worn.value);
  choices.addEventListener("change", event => { wear(event.target.value); remember(event.target.value); });
}
