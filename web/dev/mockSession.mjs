// A session of the mock server: windows of plain objects, compared after each event with what was sent.

const VIEW = { first: 0, last: 60 }
const CALLBACK = /^on[A-Z]/

export class MockWindow {
  constructor(session, handle, className, caption, options = {}) {
    Object.assign(this, { session, handle, className, caption, modal: options.modal === true, kind: options.kind })
    this.parts = new Map()
    this.wishes = []
    this.done = undefined
  }

  /** Adds a component. Functions among its properties are evaluated at each comparison, callbacks never sent. */
  add(kind, name, container, properties = {}) {
    const part = { kind, name, in: container ?? null, caption: '', enabled: true, visible: true, ...properties }
    if (['tree', 'list', 'grid'].includes(kind)) part.view = { ...VIEW }
    this.parts.set(name, part)
    return part
  }

  part(name) {
    return this.parts.get(name)
  }

  focus(name) {
    this.wishes.push({ focus: this.handle, name })
  }

  reveal(name, index) {
    this.wishes.push({ reveal: this.handle, name, index })
  }

  /** Ends the window; a dialog's waiter gets the result. */
  close(result) {
    this.session.windows.delete(this.handle)
    this.done?.(result)
  }
}

export class MockSession {
  constructor(login, send) {
    Object.assign(this, { login, send, language: 'zh' })
    this.windows = new Map()
    this.lastHandle = 0
    this.seq = 0
    this.ack = 0
    this.sent = new Map()
    this.events = []
    /** Ends what is being worked on; one for each event. */
    this.working = new Set()
  }

  open(className, caption, options) {
    const window = new MockWindow(this, ++this.lastHandle, className, caption, options)
    this.windows.set(window.handle, window)
    return window
  }

  showModal(window) {
    return new Promise(resolve => { window.done = resolve })
  }

  /** A message box; the answer is the name of the button. */
  async message(kind, caption, text, buttons) {
    const captions = { Ok: '确定', Cancel: '取消', Yes: '是(&Y)', No: '否(&N)' }
    const window = this.open('TMessage', caption, { modal: true, kind })
    window.add('label', 'Text', null, { text })
    window.add('group', 'Buttons', null, { role: 'buttons' })
    buttons.forEach((name, at) => window.add('action', name, 'Buttons', {
      caption: captions[name],
      default: at === 0,
      cancel: at === buttons.length - 1,
      onExecute: () => window.close(name),
    }))
    window.onClose = () => window.close(buttons[buttons.length - 1])
    return this.showModal(window)
  }

  /** The topmost dialog: everything below it is out of reach. */
  get top() {
    return [...this.windows.values()].filter(window => window.modal).pop()
  }

  attach() {
    this.seq = 0
    this.ack = 0
    this.sent.clear()
    for (const window of this.windows.values()) for (const part of window.parts.values()) if (part.view) part.view = { ...VIEW }
    this.flush(true)
  }

  flush(snapshot = false) {
    const changes = []
    for (const handle of this.sent.keys()) if (!this.windows.has(handle)) { changes.push({ close: handle }); this.sent.delete(handle) }
    for (const window of this.windows.values()) this.compare(window, changes)
    for (const window of this.windows.values()) changes.push(...window.wishes.splice(0))
    this.send({ seq: ++this.seq, ack: this.ack, ...(snapshot ? { snapshot: true } : {}), changes })
  }

  compare(window, changes) {
    let known = this.sent.get(window.handle)
    if (!known) {
      known = { caption: window.caption, parts: new Map() }
      this.sent.set(window.handle, known)
      changes.push({ open: window.handle, class: window.className, caption: window.caption, modal: window.modal, kind: window.kind })
    } else if (known.caption !== window.caption) {
      known.caption = window.caption
      changes.push({ set: window.handle, caption: window.caption })
    }
    for (const part of window.parts.values()) this.comparePart(window, part, known.parts, changes)
  }

  comparePart(window, part, known, changes) {
    const now = shownProperties(part)
    const before = known.get(part.name)
    if (!before) {
      changes.push({ component: window.handle, ...now })
      known.set(part.name, { properties: now, rows: '' })
    } else {
      const changed = Object.fromEntries(Object.entries(now).filter(([key, value]) => JSON.stringify(value) !== JSON.stringify(before.properties[key])))
      before.properties = now
      if (Object.keys(changed).length > 0) changes.push({ set: window.handle, name: part.name, ...changed })
    }
    if (part.view) this.compareRows(window, part, known.get(part.name), changes)
  }

  compareRows(window, part, known, changes) {
    const total = part.onCount()
    const items = []
    for (let index = part.view.first; index < Math.min(part.view.last, total); index++) items.push(part.onRow(index))
    const text = JSON.stringify([total, part.view, items])
    if (text === known.rows) return
    known.rows = text
    changes.push({ rows: window.handle, name: part.name, total, first: part.view.first, items })
  }

  async handle(event) {
    this.events.push(event)
    if (typeof event.n !== 'number' || typeof event.do !== 'string') return this.send({ error: 'malformed event', n: event.n })
    this.ack = event.n
    const window = this.windows.get(event.window)
    const part = window?.part(event.name)
    if (event.do === 'language') this.onLanguage?.(event.value)
    else if (event.do === 'snapshot') return this.attach()
    else if (window && (!this.top || this.top === window)) this.dispatch(window, part, event)
    if (event.do === 'cancel') this.stopWorking()
    await this.work()
    this.flush()
  }

  /** What the event makes the session do takes this long, unless it is cancelled. */
  work() {
    return new Promise(resolve => {
      const timer = setTimeout(resolve, this.delay ?? 0)
      this.working.add(() => { clearTimeout(timer); resolve() })
    })
  }

  stopWorking() {
    this.delay = 0
    for (const stop of this.working) stop()
    this.working.clear()
  }

  dispatch(window, part, event) {
    if (event.do === 'close') return (window.onClose ?? (() => window.close('Cancel')))()
    if (!part || !value(part.visible) || !value(part.enabled)) return
    const handlers = {
      act: () => part.onExecute?.(event.id, event.column),
      set: () => setValue(this.sent.get(window.handle)?.parts.get(part.name), part, event.value),
      select: () => part.onSelect?.(event.id ?? part.onRow(event.index).id, event.mode ?? 'set'),
      activate: () => part.onActivate?.(event.id),
      toggle: () => part.onToggle?.(event.id),
      sort: () => part.onSort?.(event.column),
      edit: () => part.onEdit?.(event.id, event.column, event.value),
      drop: () => part.onDrop?.(event.ids, event.onto),
      view: () => { part.view = { first: event.first, last: event.last + 1 } },
    }
    handlers[event.do]?.()
  }
}

/** What was typed is known to who typed it: it counts as sent. */
function setValue(known, part, entered) {
  part.value = entered
  if (known) known.properties.value = entered
  part.onChange?.()
}

function value(property) {
  return typeof property === 'function' ? property() : property
}

function shownProperties(part) {
  const shown = Object.entries(part).filter(([key]) => key !== 'view' && !CALLBACK.test(key))
  const properties = Object.fromEntries(shown.map(([key, property]) => [key, value(property)]))
  if (part.mode === 'password') {
    properties.filled = Boolean(properties.value)
    delete properties.value
  }
  return properties
}
