// Starts the real server on a free port with data of its own, and speaks with it.
import { execFileSync, spawn } from 'node:child_process'
import { existsSync, mkdtempSync, readFileSync, rmSync } from 'node:fs'
import http from 'node:http'
import https from 'node:https'
import net from 'node:net'
import { tmpdir } from 'node:os'
import { dirname, join, resolve } from 'node:path'
import { fileURLToPath } from 'node:url'
import { sqlite } from './engines.mjs'

const here = dirname(fileURLToPath(import.meta.url))
export const program = resolve(process.env.ZANHOST ?? join(here, '../../../build/bin/zanhost'))
export const fakeWorker = join(here, 'fakeWorker.mjs')
export const right = 'Right-Password-1'

export function temporaryFolder() {
  return mkdtempSync(join(tmpdir(), 'zanrole-gateway-test-'))
}

/** A sample company in fresh tables. `admin` and three ordinary users, whose password is `right`. */
export class Data {
  constructor(engine = sqlite) {
    this.folder = temporaryFolder()
    this.tables = engine.start(this.folder)
    this.url = this.tables.url
    this.run(['sample', '--data', this.url, '--people', '12'])
    const names = this.sql("select UserID from STUsers where uGroup = 0 and UserID <> 'admin' order by OID limit 3")
    ;[this.user, this.disabled, this.reset] = names.split('\n')
    for (const login of ['admin', this.user, this.disabled, this.reset]) this.setPassword(login, right)
    this.sql(`update STUsers set UnUsed = 1 where UserID = '${this.disabled}'`)
    this.sql(`update STUserPasswordStrategy set NeedReset = 1 where UserID = '${this.reset}'`)
  }

  run(args, input = '') {
    return execFileSync(program, args, { input, encoding: 'utf8', stdio: ['pipe', 'pipe', 'pipe'] })
  }

  setPassword(login, password) {
    this.run(['passwd', '--data', this.url, '--', login], password + '\n')
  }

  sql(statement) {
    return this.tables.sql(statement)
  }

  log() {
    const file = join(this.folder, 'log', 'zanhost.log')
    return existsSync(file) ? readFileSync(file, 'utf8') : ''
  }

  remove() {
    this.tables.stop()
    rmSync(this.folder, { recursive: true, force: true })
  }
}

/** Runs `zanhost serve` to its end; for starts that fail. */
export function serveToEnd(args) {
  const child = spawn(program, ['serve', ...args])
  let output = ''
  child.stdout.on('data', (part) => { output += part })
  child.stderr.on('data', (part) => { output += part })
  return new Promise((done) => child.on('close', (code) => done({ code, output })))
}

export class Server {
  /** `options`: `args` of the command, `under`: a command that runs it, `real` to run real workers, `scheme`. */
  static async start(data, { args = [], real = false, scheme = 'http', under = [] } = {}) {
    const server = new Server()
    const given = (name, value) => (args.includes(name) ? [] : [name, value])
    const worker = real ? [] : given('--worker-program', fakeWorker)
    const address = given('--listen', '127.0.0.1:0')
    server.scheme = scheme
    const [command, ...words] = [...under, program, 'serve', '--data', data.url, ...address, ...worker, ...args]
    server.child = spawn(command, words)
    server.output = ''
    server.ended = new Promise((done) => server.child.on('close', (code, signal) => done({ code, signal })))
    server.child.stderr.on('data', (part) => { server.output += part })
    server.port = await new Promise((found, failed) => {
      server.child.stdout.on('data', (part) => {
        server.output += part
        const match = /listens on \S+:(\d+)/.exec(server.output)
        if (match) found(Number(match[1]))
      })
      server.child.on('close', () => failed(new Error(`The server did not start: ${server.output}`)))
    })
    server.host = `127.0.0.1:${server.port}`
    server.origin = `${scheme}://${server.host}`
    return server
  }

  async stop(signal = 'SIGTERM') {
    this.child.kill(signal)
    return this.ended
  }

  /** One request; the path goes out as it stands. Gives status, headers and body, parsed when it is JSON. */
  request(method, path, { headers = {}, body } = {}) {
    const client = this.scheme === 'https' ? https : http
    const options = { host: '127.0.0.1', port: this.port, method, path, headers, agent: false, rejectUnauthorized: false }
    return new Promise((done, failed) => {
      const request = client.request(options, (response) => {
        const parts = []
        response.on('data', (part) => parts.push(part))
        response.on('end', () => {
          const text = Buffer.concat(parts).toString('utf8')
          const isJson = text !== '' && /json/.test(response.headers['content-type'] ?? '')
          done({ status: response.statusCode, headers: response.headers, text, body: isJson ? JSON.parse(text) : undefined })
        })
      })
      request.on('error', failed)
      request.end(body)
    })
  }

  /** Sends text as it stands over a connection of its own; gives all that comes back until the server closes it. */
  exchange(text) {
    return new Promise((done, failed) => {
      const socket = net.connect(this.port, '127.0.0.1', () => socket.write(text))
      let answer = ''
      socket.on('data', (part) => { answer += part })
      socket.on('end', () => done(answer))
      socket.on('error', failed)
    })
  }

  get(path, headers = {}) {
    return this.request('GET', path, { headers })
  }

  post(path, value, headers = {}) {
    const body = typeof value === 'string' || Buffer.isBuffer(value) ? value : JSON.stringify(value ?? {})
    return this.request('POST', path, { headers: { origin: this.origin, 'content-length': Buffer.byteLength(body), ...headers }, body })
  }

  logIn(login, password, more = {}, headers = {}) {
    return this.post('/api/login', { login, password, ...more }, headers)
  }

  /** Logs in and gives the Cookie header for further requests. */
  async cookieOf(login, password = right) {
    const reply = await this.logIn(login, password)
    if (reply.status !== 200) throw new Error(`Login gave ${reply.status}: ${reply.text}`)
    return reply.headers['set-cookie'][0].split(';')[0]
  }
}

export async function until(condition, what, limit = 15000) {
  const end = Date.now() + limit
  while (!(await condition())) {
    if (Date.now() > end) throw new Error(`Waited too long until ${what}`)
    await new Promise((next) => setTimeout(next, 25))
  }
}

export function isRunning(pid) {
  try {
    // A process that ended and was not asked for yet has a status still.
    return !/^State:\s+[ZX]/m.test(readFileSync(`/proc/${pid}/status`, 'utf8'))
  } catch (fault) {
    if (fault.code !== 'ENOENT' && fault.code !== 'ESRCH') throw fault
    return false
  }
}
