// Making elements. Every text of a report goes in as text, never as markup.

const byId = id => document.getElementById(id);

// element("a", { class: "b" }, child, ...); an attribute that is false or undefined is left out.
function element(tag, attributes = {}, ...children) {
  return filled(document.createElement(tag), attributes, children);
}

function drawing(tag, attributes = {}, ...children) {
  return filled(document.createElementNS("http://www.w3.org/2000/svg", tag), attributes, children);
}

function filled(node, attributes, children) {
  for (const [name, value] of Object.entries(attributes)) {
    if (value !== undefined && value !== false) node.setAttribute(name, value === true ? "" : value);
  }
  node.append(...children);
  return node;
}

function button(label, pressed, attributes = {}) {
  const node = element("button", { type: "button", ...attributes }, label);
  node.addEventListener("click", pressed);
  return node;
}

// The application's colour, by its rank; applications of lesser rank share one.
const colourCount = 8;

function colourOf(application) {
  return application.rank < colourCount ? `var(--application-${application.rank})` : "var(--application-other)";
}

function swatch(application) {
  return element("span", { class: "swatch", style: `background:${colourOf(application)}`, "aria-hidden": "true" });
}
