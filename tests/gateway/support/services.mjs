// A server with a sample company, the tokens for it, and a client of its interface that knows its document.
import { spawnSync } from 'node:child_process'
import { chmodSync, readFileSync, writeFileSync } from 'node:fs'
import { join } from 'node:path'
import { Interface } from './openapi.mjs'
import { Data, Server, program } from './server.mjs'

/** "operationId status" of every answer that came in this process. */
export const met = new Set()

export class Services {
  constructor(engine) {
    this.engine = engine
  }

  async start() {
    this.data = new Data(this.engine)
    this.server = await this.serve(this.data.tables.restricted((words) => this.data.run(words)))
    const { body } = await this.server.get('/api/openapi.json')
    this.known = new Interface(body, met)
    this.functions = this.listed().filter((one) => one.kind === 'system')
    this.all = this.token()
    const { body: { functions } } = await this.ask('listFunctions')
    this.pasting = functions.filter((one) => one.pastesText).map((one) => one.name)
    this.pastingToken = this.token({ functions: this.pasting.join(',') })
  }

  /** Another server on the same data. Each request may tell from where it comes, since wrong tokens slow down. */
  serve(args = []) {
    return Server.start(this.data, { args: ['--behind-proxy', '127.0.0.1', '--answer-processes', '2', ...args], real: true })
  }

  async stop() {
    await this.server?.stop()
    this.data?.remove()
  }

  /** Makes a token that may ask everything but what is given, and gives it with its `id`. */
  newToken({ functions = '*', questions = '*', logins = '*', perSecond = 1000 } = {}) {
    const scope = Object.entries({ functions, questions, logins }).flatMap(([name, value]) => (value === '' ? [] : [`--${name}`, value]))
    this.made = (this.made ?? 0) + 1
    const words = ['--name', `test ${this.made}`, ...scope, '--per-second', String(perSecond), '--data', this.data.url]
    return JSON.parse(this.data.run(['token', 'add', ...words]))
  }

  token(scope) {
    return this.newToken(scope).token
  }

  revoke(id) {
    this.data.run(['token', 'revoke', id, '--data', this.data.url])
  }

  get #tokenFile() {
    return join(this.data.folder, 'tokens.json')
  }

  /** Changes the file of the tokens past the program. */
  editTokens(change) {
    const text = readFileSync(this.#tokenFile, 'utf8')
    writeFileSync(this.#tokenFile, change(text))
  }

  /** Lets other accounts of the machine write the tokens, or no longer. */
  shareTokens(isShared) {
    chmodSync(this.#tokenFile, isShared ? 0o666 : 0o600)
  }

  /** One request that the document describes; see Interface.ask. `from`: the address that asks; `server`: another one. */
  ask(id, given = {}, { token = this.all, from = '192.0.2.1', server = this.server, headers = {}, ...options } = {}) {
    const all = { ...options, headers: { 'x-forwarded-for': from, ...headers } }
    if (token !== null) all.token = token
    return this.known.ask(server, id, given, all)
  }

  call(name, inputs, login, options = {}) {
    const token = this.pasting?.includes(name) ? this.pastingToken : this.all
    return this.ask('callFunction', { name }, { token, body: { in: inputs, login }, ...options })
  }

  /** What a command of the program prints: its JSON line, also when it fails. */
  command(...words) {
    const { stdout, stderr } = spawnSync(program, [words[0], '--data', this.data.url, ...words.slice(1)], { encoding: 'utf8' })
    if (stdout === '') throw new Error(`${words.join(' ')}: ${stderr}`)
    return JSON.parse(stdout)
  }

  /** The lines of `zanhost functions`. */
  listed() {
    return this.data.run(['functions', '--data', this.data.url]).trim().split('\n').map((line) => JSON.parse(line))
  }

  oidOf(login) {
    return Number(this.data.sql(`select OID from STUsers where UserID = '${login}' and uGroup = 0`))
  }
}
