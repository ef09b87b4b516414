// The list of actions, a page at a time; all of it for the printer.

const pageLength = 100;
const printedAtMost = 2000;
const shownTextLength = 300;

function shortened(text) { return text.length > shownTextLength ? text.slice(0, shownTextLength) + "…" : text; }

class ActionList {
  constructor(session) {
    this.session = session;
    this.showsDays = session.count > 0 && !isSameDay(session.dateAt(0), session.dateAt(session.end));
    this.table = byId("list");
    this.pagers = [...document.querySelectorAll(".pager")].map(nav => this.pager(nav));
    this.pageChanged = () => {};
    this.words = [];
    addEventListener("beforeprint", () => this.fillForPrinter());
    addEventListener("afterprint", () => this.showPage(this.page));
  }

  get pageCount() { return Math.max(1, Math.ceil(this.rows.length / pageLength)); }

  get place() { return `page ${formatNumber(this.page + 1)} of ${formatNumber(this.pageCount)}`; }

  // The rows to show from now on, those that fit `words`, beginning at a page.
  show(rows, words, page) {
    this.rows = rows;
    this.words = words;
    this.showPage(page);
  }

  showPage(page) {
    this.page = Math.min(Math.max(page, 0), this.pageCount - 1);
    const first = this.page * pageLength;
    this.fill(this.rows.slice(first, first + pageLength));
    this.table.hidden = this.rows.length === 0;
    for (const pager of this.pagers) this.updatePager(pager);
  }

  // Turns to the page of the first row at that time or later and points at the row.
  showMoment(time) {
    const place = this.rows.findIndex(row => this.session.times[row] >= time);
    const index = place < 0 ? this.rows.length - 1 : place;
    if (index < 0) return;
    this.turnTo(Math.floor(index / pageLength));
    const line = this.table.tBodies[0].rows[index % pageLength];
    line.classList.add("pointed-at");
    line.scrollIntoView({ block: "center" });
  }

  turnTo(page) {
    this.showPage(page);
    this.pageChanged(this.page);
  }

  // The keyboard stays where it is, unless that is below the list or can no longer be pressed.
  turnBy(pressed, page) {
    this.turnTo(page);
    byId("page").scrollIntoView();
    if (pressed.disabled || this.table.compareDocumentPosition(pressed) & Node.DOCUMENT_POSITION_FOLLOWING) {
      byId("page").focus({ preventScroll: true });
    }
  }

  fillForPrinter() {
    this.fill(this.rows.slice(0, printedAtMost));
    byId("printed-part").textContent = this.rows.length <= printedAtMost ? "" : `These are the first ` +
      `${formatNumber(printedAtMost)} of ${formatCount(this.rows.length, "action")}. Search or filter to print others.`;
  }

  fill(rows) { this.table.tBodies[0].replaceChildren(...rows.map(row => this.line(row))); }

  line(row) {
    const kind = this.session.kind(row), application = this.session.application(row);
    const day = this.showsDays ? `${monthDayFormat.format(this.session.date(row))} ` : "";
    const time = element("time", { datetime: this.session.date(row).toISOString() },
      day + formatTime(this.session.date(row)));
    const where = application ? [swatch(application), element("bdi", {}, ...marked(application.label, this.words))] : [];
    return element("tr", { class: kind.group }, element("th", { scope: "row" }, time),
      element("td", { class: "where" }, ...where),
      element("td", {}, element("span", { class: `kind ${kind.group}` }, ...marked(kind.label, this.words))),
      element("td", {}, this.sentence(row, kind)));
  }

  sentence(row, kind) {
    const pieces = this.pieces(row, kind);
    if (kind.fields.length === 0) return element("div", { class: "sentence" }, ...pieces);
    const details = element("details", { class: "sentence" }, element("summary", {}, ...pieces));
    details.addEventListener("toggle", () => details.append(this.members(row)), { once: true });
    return details;
  }

  pieces(row, kind) {
    const [deed, object, outcome] = [column.deed, column.object, column.outcome]
      .map(piece => this.session.text(row, piece));
    const pieces = [element("span", { class: "deed" }, ...marked(deed, this.words))];
    if (object !== undefined) pieces.push(" ", this.object(object, kind.group));
    if (outcome !== undefined) pieces.push(" ", this.outcome(outcome));
    for (const [name, text] of this.hiddenMatches(row, [deed, object, outcome].join(" "))) {
      pieces.push(" ", element("span", { class: "matched" }, `${name}: `, ...marked(shortened(text), this.words)));
    }
    if (kind.group === "secret") pieces.push(" ", element("span", { class: "unrecorded" }, "Value not recorded"));
    return pieces;
  }

  // The members for which a row was found although its sentence does not show them.
  hiddenMatches(row, sentence) {
    if (this.words.length === 0) return [];
    return this.session.members(row).filter(([name, text]) => !unsearchedFields.has(name) &&
      !sentence.includes(text) && this.words.some(word => folded(text).includes(word)));
  }

  object(text, group) {
    if (text === "") return element("span", { class: "unnamed" }, "without a name");
    return element(group === "key" ? "kbd" : "strong", {},
      element("bdi", {}, ...marked(shortened(text), this.words)));
  }

  outcome(text) {
    if (text === "") return element("span", { class: "unnamed" }, "empty");
    return element("span", { class: "outcome" }, element("bdi", {}, ...marked(shortened(text), this.words)));
  }

  members(row) {
    return element("dl", { class: "members" }, ...this.session.members(row).flatMap(([name, text]) =>
      [element("dt", {}, name), element("dd", {}, element("bdi", {}, text))]));
  }

  pager(nav) {
    const range = element("span", { class: "range" });
    const turn = (label, target) => button(label, event => this.turnBy(event.target, target()));
    const buttons = { first: turn("First", () => 0), previous: turn("Previous", () => this.page - 1),
      next: turn("Next", () => this.page + 1), last: turn("Last", () => this.pageCount - 1) };
    nav.append(range, ...Object.values(buttons));
    return { nav, range, ...buttons };
  }

  updatePager({ nav, range, first, previous, next, last }) {
    nav.hidden = this.pageCount === 1;
    range.textContent = this.place;
    for (const backward of [first, previous]) backward.disabled = this.page === 0;
    for (const forward of [next, last]) forward.disabled = this.page === this.pageCount - 1;
  }
}
