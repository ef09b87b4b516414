// Puts the page together: what is asked for is kept in one place, and in the address, so that a view can be kept.

class Page {
  constructor(session) {
    this.session = session;
    this.search = new Search(session);
    this.asked = { text: "", kinds: new Set(), applications: new Set() };
    rankApplications(session);
    showOverview(session);
    this.list = new ActionList(session);
    this.list.pageChanged = () => this.afterPageChange();
    this.kinds = kindFacet(session, kinds => this.ask({ kinds }));
    this.applications = applicationFacet(session, applications => this.ask({ applications }));
    this.timeline = new Timeline(session, { applicationChosen: index => this.chooseApplication(index),
      momentChosen: time => this.list.showMoment(time) });
    this.setUpControls();
    this.readAddress();
  }

  setUpControls() {
    const isNarrow = matchMedia("(max-width: 900px)").matches;
    for (const facet of document.querySelectorAll(".facet")) facet.open = !isNarrow;
    byId("filters").addEventListener("submit", event => event.preventDefault());
    byId("search").addEventListener("input", event => this.ask({ text: event.target.value }));
    byId("clear").addEventListener("click", () => this.clear());
    byId("print").addEventListener("click", () => print());
    const moment = byId("moment");
    moment.min = formatForInput(this.session.dateAt(0));
    moment.max = formatForInput(this.session.dateAt(this.session.end));
    moment.value = moment.min;
    moment.addEventListener("change", () => this.goTo(moment.value));
    addEventListener("hashchange", () => this.readAddress());
  }

  goTo(value) {
    const date = new Date(value);
    if (!isNaN(date)) this.list.showMoment(date.getTime() * 1000 - this.session.begin);
  }

  chooseApplication(index) {
    this.ask({ applications: new Set([index]) });
    byId("actions").scrollIntoView();
    byId("actions").focus({ preventScroll: true });
  }

  clear() {
    this.ask({ text: "", kinds: new Set(), applications: new Set() });
    byId("search").focus();
  }

  ask(change, page = 0) {
    Object.assign(this.asked, change);
    this.showAsked();
    this.list.show(this.search.rows(this.asked), wordsOf(this.asked.text), page);
    this.afterPageChange();
  }

  showAsked() {
    const { text, kinds, applications } = this.asked;
    if (byId("search").value !== text) byId("search").value = text;
    this.kinds.chosen = kinds;
    this.applications.chosen = applications;
    byId("clear").disabled = text === "" && kinds.size === 0 && applications.size === 0;
  }

  afterPageChange() {
    this.tellResult();
    this.writeAddress();
  }

  tellResult() {
    const found = this.list.rows.length, all = this.session.count;
    const count = found === all ? formatCount(all, "action") : `${formatNumber(found)} of ${formatCount(all, "action")}`;
    const page = this.list.pageCount > 1 ? element("span", { class: "visually-hidden" }, `, ${this.list.place}`) : "";
    byId("status").replaceChildren(count, page);
    byId("empty").hidden = found > 0;
    byId("empty").textContent = all === 0 ? "The session holds no reports." : "No action fits the search and the filters.";
  }

  writeAddress() {
    const { text, kinds, applications } = this.asked;
    const parts = new URLSearchParams();
    if (text !== "") parts.set("text", text);
    for (const kind of kinds) parts.append("kind", this.session.kinds[kind].name);
    for (const application of applications) parts.append("application", this.session.applications[application].label);
    if (this.list.page > 0) parts.set("page", this.list.page + 1);
    this.address = parts.toString();
    history.replaceState(null, "", "#" + this.address);
  }

  readAddress() {
    const address = location.hash.slice(1);
    const isPlaceInPage = address !== "" && !address.includes("=");
    if (address === this.address || isPlaceInPage) return;
    const parts = new URLSearchParams(address);
    const indices = (key, list, name) => new Set(parts.getAll(key).map(text => list.findIndex(entry => entry[name] === text))
      .filter(index => index >= 0));
    this.ask({ text: parts.get("text") ?? "", kinds: indices("kind", this.session.kinds, "name"),
      applications: indices("application", this.session.applications, "label") }, Number(parts.get("page") ?? 1) - 1);
  }
}

setUpAppearance();
new Page(new Session(JSON.parse(byId("session-data").textContent)));
