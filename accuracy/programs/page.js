// Who acts in a page asks where its elements are, those of its frames too, and what stands in them (see browser.py).
let corner = null
addEventListener("mousemove", event => { corner = [event.screenX - event.clientX, event.screenY - event.clientY] })

function frameElements() {
  return [...document.querySelectorAll("iframe")]
}

function named(name) {
  const documents = [document, ...frameElements().map(frame => frame.contentDocument)]
  return documents.map(one => one?.getElementById(name)).find(element => element)
}

const commands = {
  place(name) {
    const element = named(name)
    const area = element?.getBoundingClientRect()
    const around = frameElements().find(frame => frame.contentDocument === element?.ownerDocument)
    const origin = around ? around.getBoundingClientRect() : {x: 0, y: 0}
    return corner && area && area.width && [corner[0] + area.x + origin.x, corner[1] + area.y + origin.y, area.width, area.height].map(Math.round)
  },
  value(name) {
    const element = named(name)
    return element.type === "checkbox" || element.type === "radio" ? element.checked : element.value ?? element.textContent
  }
}

new EventSource("/commands").onmessage = message => {
  const [[command, argument]] = Object.entries(JSON.parse(message.data))
  fetch("/answer", {method: "POST", body: JSON.stringify(commands[command](argument) ?? null)})
}
