// One page of the client: a WebSocket that keeps what it was told.
import WebSocket from 'ws'

const PATIENCE = 15000

export class Page {
  /** Opens the session's WebSocket; an HTTP answer instead is thrown as an error with its `status`. */
  static open(server, cookie, { origin = server.origin, path = '/api/ws' } = {}) {
    const headers = { ...(cookie ? { cookie } : {}), ...(origin ? { origin } : {}) }
    const scheme = server.scheme === 'https' ? 'wss' : 'ws'
    const socket = new WebSocket(`${scheme}://${server.host}${path}`, { headers, rejectUnauthorized: false })
    const page = new Page(socket)
    return new Promise((opened, failed) => {
      socket.on('open', () => opened(page))
      socket.on('unexpected-response', (request, response) => {
        failed(Object.assign(new Error(`status ${response.statusCode}`), { status: response.statusCode }))
        request.destroy()
      })
      socket.on('error', failed)
    })
  }

  constructor(socket) {
    this.socket = socket
    this.lines = []
    this.waiting = []
    this.number = 0
    this.closed = new Promise((done) => socket.on('close', (code) => done(code)))
    socket.on('message', (data) => {
      this.lines.push(JSON.parse(data.toString()))
      this.waiting = this.waiting.filter((look) => !look())
    })
  }

  /** The first line, from `from` on, for which `condition` holds. */
  line(condition, what, from = 0) {
    return new Promise((found, failed) => {
      const timer = setTimeout(() => failed(new Error(`No ${what} among ${JSON.stringify(this.lines).slice(0, 2000)}`)), PATIENCE)
      const look = () => {
        const line = this.lines.slice(from).find(condition)
        if (line === undefined) return false
        clearTimeout(timer)
        found(line)
        return true
      }
      if (!look()) this.waiting.push(look)
    })
  }

  snapshot() {
    return this.line((line) => line.snapshot === true, 'snapshot')
  }

  bye() {
    return this.line((line) => line.bye !== undefined, 'bye')
  }

  sendRaw(text) {
    this.socket.send(text)
  }

  /** Sends an event and waits for its acknowledgement; gives all changes that came until then. */
  async event(event) {
    const from = this.lines.length
    const n = this.tell(event)
    await this.line((line) => line.ack >= n, `acknowledgement of ${n}`, from)
    return this.lines.slice(from).flatMap((line) => line.changes ?? [])
  }

  /** Sends an event without waiting. */
  tell(event) {
    this.number += 1
    this.sendRaw(JSON.stringify({ n: this.number, ...event }))
    return this.number
  }

  async report() {
    const changes = await this.event({ do: 'report' })
    return changes.find((change) => change.report).report
  }

  close() {
    this.socket.close()
    return this.closed
  }
}
