// One line for each application: when it was in front, for how long, and what share of the time that is.

const shownAtFirst = 10;
const drawnWidth = 2000;
const tickSteps = [1, 2, 5, 10, 15, 30, 60, 120, 300, 600, 900, 1800, 3600, 7200, 10800, 21600, 43200, 86400, 172800,
  604800].map(seconds => seconds * second);

function bySpentTime(session) {
  return [...session.applications].sort((left, right) => right.timeInFront - left.timeInFront ||
    right.actions - left.actions || left.label.localeCompare(right.label));
}

// Colours go by time in front; what is not known gets none.
function rankApplications(session) {
  let rank = 0;
  for (const application of bySpentTime(session)) {
    application.rank = isKnown(application) ? rank++ : Infinity;
  }
}

class Timeline {
  constructor(session, { applicationChosen, momentChosen }) {
    this.session = session;
    this.applicationChosen = applicationChosen;
    this.momentChosen = momentChosen;
    this.length = Math.max(session.end, 1);
    this.extents = this.extentsByApplication();
    this.table = byId("timeline");
    this.ticks = this.findTicks();
    this.show();
  }

  show() {
    this.applications = bySpentTime(this.session);
    const more = byId("more-applications");
    this.fill(shownAtFirst);
    more.hidden = this.applications.length <= shownAtFirst;
    more.textContent = `Show all ${formatNumber(this.applications.length)} applications`;
    more.addEventListener("click", () => { this.fill(Infinity); more.hidden = true; });
    byId("timeline-legend").textContent = this.legend();
    byId("timeline-section").hidden = this.applications.length === 0;
  }

  legend() {
    const hasUnknown = this.applications.some(application => !isKnown(application));
    return [this.session.pauses.length > 0 ? "Grey stretches: nothing was collected." : "",
      hasUnknown ? `${unknownApplication}: in front when collection started, until the first switch was reported.` : ""]
      .join(" ");
  }

  fill(count) {
    this.table.replaceChildren(this.head(), element("tbody", {},
      ...this.applications.slice(0, count).map(application => this.line(application))));
  }

  head() {
    const heading = (label, kind) => element("th", { scope: "col", class: kind }, label);
    this.pointedTime = element("span", { class: "pointed-time", hidden: true });
    const axis = element("span", { class: "axis", "aria-hidden": "true" }, this.pointedTime,
      ...this.ticks.map(({ time, label }) => element("span", { style: `left:${100 * time / this.length}%` }, label)));
    const timeline = element("th", { scope: "col", class: "drawn" }, element("span", { class: "visually-hidden" }, "Timeline"), axis);
    return element("thead", {}, element("tr", {}, heading("Application"), timeline, heading("Time in front", "number"),
      heading("Share", "number"), heading("Switches", "number"), heading("Actions", "number")));
  }

  line(application) {
    const share = this.session.collected > 0 ? application.timeInFront / this.session.collected : 0;
    const number = text => element("td", { class: "number" }, text);
    const choose = button("", () => this.applicationChosen(application.index),
      { class: "quiet name", title: `Show the actions in ${application.label}` });
    choose.append(swatch(application), element("bdi", {}, application.label));
    return element("tr", {}, element("th", { scope: "row" }, choose),
      element("td", { class: "drawn" }, this.picture(application)), number(formatDuration(application.timeInFront)),
      number(formatShare(share)), number(formatNumber(application.switches)), number(formatNumber(application.actions)));
  }

  picture(application) {
    const extents = this.extents[application.index];
    const picture = drawing("svg", { viewBox: `0 0 ${drawnWidth} 1`, preserveAspectRatio: "none", role: "img",
      "aria-label": `In front ${formatCount(extents.count, "time")}` },
      drawing("path", { d: this.pathOf(this.pauseExtents ??= this.extentsOf(this.session.pauses)), class: "pause" }),
      drawing("path", { d: this.tickPath(), class: "tick" }),
      drawing("path", { d: this.pathOf(extents), style: `fill:${colourOf(application)}` }));
    picture.addEventListener("click", event => this.momentChosen(this.momentAt(event)));
    picture.addEventListener("pointermove", event => this.pointAt(this.momentAt(event)));
    picture.addEventListener("pointerleave", () => { this.pointedTime.hidden = true; });
    return picture;
  }

  momentAt(event) {
    const frame = event.currentTarget.getBoundingClientRect();
    return this.length * (event.clientX - frame.left) / frame.width;
  }

  pointAt(time) {
    this.pointedTime.hidden = false;
    this.pointedTime.textContent = timeFormat.format(this.session.dateAt(time));
    this.pointedTime.style.left = `${100 * time / this.length}%`;
  }

  extentsByApplication() {
    const bounds = this.session.applications.map(() => []);
    const { spans } = this.session;
    for (let index = 0; index < spans.length; index += 3) bounds[spans[index]].push(spans[index + 1], spans[index + 2]);
    return bounds.map(list => this.extentsOf(list));
  }

  // Begin and end of each stretch in drawn units, those that would touch drawn as one.
  extentsOf(bounds) {
    const extents = [];
    for (let index = 0; index < bounds.length; index += 2) {
      const begin = Math.floor(drawnWidth * bounds[index] / this.length);
      const end = Math.max(begin + 2, Math.ceil(drawnWidth * bounds[index + 1] / this.length));
      const last = extents.at(-1);
      if (last && begin >= last.begin && begin <= last.end) last.end = Math.max(last.end, end);
      else extents.push({ begin, end });
    }
    return { list: extents, count: bounds.length / 2 };
  }

  pathOf({ list }) { return list.map(({ begin, end }) => `M${begin} 0H${end}V1H${begin}Z`).join(""); }

  tickPath() { return this.ticks.map(({ time }) => `M${drawnWidth * time / this.length} 0V1`).join(""); }

  // At most eight, at round times of the reader's clock.
  findTicks() {
    const step = tickSteps.find(candidate => this.length / candidate <= 8) ?? tickSteps.at(-1);
    const offset = this.session.dateAt(0).getTimezoneOffset() * minute;
    const format = step >= day ? monthDayFormat : step >= minute ? minuteFormat : timeFormat;
    const first = step - (this.session.begin - offset) % step;
    const ticks = [];
    for (let time = first; time < 0.97 * this.length && ticks.length < 60; time += step) {
      ticks.push({ time, label: format.format(this.session.dateAt(time)) });
    }
    return ticks;
  }
}
