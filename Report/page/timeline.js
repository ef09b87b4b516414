// One line for each application: when it was in front, for how long, and what share of the time that is.

const shownAtFirst = 10;
const drawnWidth = 2000;
// Of the column on a printed page, in pixels.
const printedWidth = 240;

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
    this.ticks = ticksOf(session, this.length);
    this.show();
  }

  show() {
    this.applications = bySpentTime(this.session);
    const more = byId("more-applications");
    this.fill(shownAtFirst);
    more.hidden = this.applications.length <= shownAtFirst;
    more.textContent = `Show all ${formatNumber(this.applications.length)} applications`;
    more.addEventListener("click", () => {
      this.fill(Infinity);
      this.showLabels(this.axis.clientWidth);
      more.hidden = true;
    });
    byId("timeline-legend").textContent = this.legend();
    byId("timeline-section").hidden = this.applications.length === 0;
    addEventListener("resize", () => this.showLabels(this.axis.clientWidth));
    addEventListener("beforeprint", () => this.showLabels(printedWidth));
    addEventListener("afterprint", () => this.showLabels(this.axis.clientWidth));
    this.showLabels(this.axis.clientWidth);
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
    this.axis = element("span", { class: "axis", "aria-hidden": "true" }, this.pointedTime,
      ...this.ticks.map(({ time, label }) => element("span", { style: `left:${100 * time / this.length}%` }, label)));
    const timeline = element("th", { scope: "col", class: "drawn" }, element("span", { class: "visually-hidden" }, "Timeline"), this.axis);
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

  // Every so many ticks have a label, so that none touches the next one or stands out of the column.
  showLabels(width) {
    const labels = [...this.axis.children].filter(label => label !== this.pointedTime);
    for (const label of labels) label.hidden = false;
    const widest = Math.max(...labels.map(label => label.offsetWidth));
    const stride = labelStride(this.ticks, this.length, width, widest);
    labels.forEach((label, index) => {
      const place = width * this.ticks[index].time / this.length;
      label.hidden = index % stride !== 0 || place < widest / 2 || place > width - widest / 2;
    });
  }
}
