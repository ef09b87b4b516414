// The lists of check boxes that choose kinds and applications; their bars show how often each occurs.

class Facet {
  // Each choice: { value, label, count, mark }. `changed` gets the set of the chosen values.
  constructor(fieldset, choices, changed) {
    this.boxes = choices.map(choice => this.box(choice));
    const most = Math.max(...choices.map(choice => choice.count));
    fieldset.append(element("ul", {}, ...choices.map((choice, index) => this.line(choice, this.boxes[index], most))));
    fieldset.addEventListener("change", () => changed(this.chosen));
  }

  get chosen() {
    return new Set(this.boxes.filter(box => box.checked).map(box => Number(box.value)));
  }

  set chosen(values) {
    for (const box of this.boxes) box.checked = values.has(Number(box.value));
  }

  box({ value }) { return element("input", { type: "checkbox", value }); }

  line({ label, count, mark }, box, most) {
    const bar = element("span", { class: "track", "aria-hidden": "true" },
      element("span", { class: "bar", style: `width:${100 * count / most}%` }));
    return element("li", {}, element("label", {}, box, element("span", { class: "choice" }, ...mark, label),
      element("span", { class: "count" }, formatNumber(count)), bar));
  }
}

function kindFacet(session, changed) {
  const choices = session.kinds.map((kind, value) => ({ value, label: kind.label, count: kind.count,
    mark: [element("span", { class: `dot ${kind.group}`, "aria-hidden": "true" })] }));
  return new Facet(byId("kinds"), byCount(choices), changed);
}

function applicationFacet(session, changed) {
  const choices = session.applications.map((application, value) => ({ value, label: application.label,
    count: application.actions, mark: [swatch(application)] }));
  return new Facet(byId("applications"), byCount(choices), changed);
}

function byCount(choices) {
  return choices.filter(({ count }) => count > 0)
    .sort((left, right) => right.count - left.count || left.label.localeCompare(right.label));
}
